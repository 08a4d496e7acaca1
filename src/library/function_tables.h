#pragma once

#include "foundation/ctr_3.h"

// Tables of functions of small integers, for inner loops that would divide or take roots:
//
//     const auto& reciprocal = td_1_on_x().table_for(n);     // once, before the loop
//     ... reciprocal[i] ...                                  // for i from 0 to n - 1
//
// A table begins with 8192 entries and is replaced by a larger one on demand. In a program that
// uses any of them, all four are built before main runs.

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

    /// Builds the first table if there is none; else destroys all tables but the newest.
    void reset() override;
    /// Sets the entries from max(from, 1) to the last of `table`, and entry 0.
    virtual void fill(V& table, int from) const = 0;
    /// The size of the first table.
    virtual int start_n() const { return 8192; }

    /// A table of at least `n` entries. It stays valid until the next call that asks for more than
    /// the table holds. Throws std::bad_alloc when there is no room for it.
    const V& table_for(int n);

    list_0_3<V*> tables;  ///< the newest last

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

/// The natural logarithm; -1e140 at 0, so that sums of logarithms stay finite.
class td_ln_soft_3 final : public td_max_n_chk_3<function_table_3> {
public:
    td_ln_soft_3() { reset(); }
    void fill(function_table_3& table, int from) const override;
};

// The one object of each class.
td_1_on_x_soft_3& td_1_on_x();
td_sqrt_x_soft_3& td_sqrt_x();
td_1_on_sqrt_x_soft_3& td_1_on_sqrt_x();
td_ln_soft_3& td_ln();
