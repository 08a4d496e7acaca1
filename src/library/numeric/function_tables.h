#pragma once

#include "foundation/ctr_3.h"

// Four functions of whole numbers from 0 up, looked up where computing them would take too long:
//
//     const auto& reciprocal = td_1_on_x().table_for(n);
//     for (int i = 0; i < n; ++i) y[i] = x[i] * reciprocal[i];
//
// Each begins with 8192 values and makes a longer table when somebody needs it. A program that
// names one of them builds all four before main runs.

using function_table_3 =
    vec_3<double, double, ctr_base_0_3<double, double, mem_copy_3<double, double>>>;

class B_td_max_n_chk_3 {
public:
    virtual void reset() = 0;

protected:
    ~B_td_max_n_chk_3() = default;
};

/// A table of a function, of the list type `V`.
template <typename V>
class td_max_n_chk_3 : public B_td_max_n_chk_3 {
public:
    td_max_n_chk_3() = default;
    td_max_n_chk_3(const td_max_n_chk_3&) = delete;
    td_max_n_chk_3& operator=(const td_max_n_chk_3&) = delete;

    /// Without tables makes one; of several keeps only the longest.
    void reset() override;
    /// Computes the values of `table` from index `from` on, and in any case the one at 0, where the
    /// function may have none.
    virtual void fill(V& table, int from) const = 0;
    /// How long a table is to begin with.
    virtual int start_n() const { return 8192; }

    /// The values at 0 to n - 1, and perhaps more. The reference is good until a call needs a
    /// longer table than this one. Throws std::bad_alloc when there is no room for it.
    const V& table_for(int n);

    list_0_3<V*> tables;  ///< the longest last

protected:
    ~td_max_n_chk_3();
};

/// 1/x; 0 at 0.
class td_1_on_x_soft_3 final : public td_max_n_chk_3<function_table_3> {
public:
    td_1_on_x_soft_3() { reset(); }
    void fill(function_table_3& table, int from) const override;
};

/// The square root.
class td_sqrt_x_soft_3 final : public td_max_n_chk_3<function_table_3> {
public:
    td_sqrt_x_soft_3() { reset(); }
    void fill(function_table_3& table, int from) const override;
};

/// 1 / square root; 0 at 0.
class td_1_on_sqrt_x_soft_3 final : public td_max_n_chk_3<function_table_3> {
public:
    td_1_on_sqrt_x_soft_3() { reset(); }
    void fill(function_table_3& table, int from) const override;
};

/// The natural logarithm; -1e140 at 0, which can be added up unlike an infinity.
class td_ln_soft_3 final : public td_max_n_chk_3<function_table_3> {
public:
    td_ln_soft_3() { reset(); }
    void fill(function_table_3& table, int from) const override;
};

// Where the tables are found.
td_1_on_x_soft_3& td_1_on_x();
td_sqrt_x_soft_3& td_sqrt_x();
td_1_on_sqrt_x_soft_3& td_1_on_sqrt_x();
td_ln_soft_3& td_ln();
