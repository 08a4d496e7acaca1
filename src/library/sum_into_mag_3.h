#pragma once

#include "reflections/phase_records.h"

// How the contribution of a group of magnetic operators is laid down in rows of six numbers, one
// row for each reflection: axis 1 real, axis 1 imaginary, axis 2 real, ... The pair (s, c) of `w`
// for the group and the reflection is multiplied by a real factor and by the moment of the group:
//
//     real form:  c M0, s M3, c M1, s M4, c M2, s M5
//     i form:     the same with -s for c, and c for s
//
// Nothing is checked: `w`, `t`, `v` and `out` must have room for all rows of `out`.

/// Adds to a number of a row, or stores it.
struct d_sum_into_mag_1 {
    static void take(double& to, double value) { to += value; }
};
struct e_sum_into_mag_1 {
    static void take(double& to, double value) { to = value; }
};

/// An entry of the mask table.
class B_sum_into_mag_3 {
public:
    /// The real form with a factor from `t`.
    virtual void sum_t(const number_store_3& t, int row, const number_store_3& w,
                       const number_store_3& out, const moment_3& moment) const = 0;
    /// The real form.
    virtual void sum(int row, const number_store_3& w, const number_store_3& out,
                     const moment_3& moment) const = 0;
    /// The i form with a factor from `v`.
    virtual void sum_i(const store_3<float>& v, int row, const number_store_3& w,
                       const number_store_3& out, const moment_3& moment) const = 0;
    /// The i form with a factor from each of `t` and `v`.
    virtual void sum_i_t(const store_3<float>& v, const number_store_3& t, int row,
                         const number_store_3& w, const number_store_3& out,
                         const moment_3& moment) const = 0;
    /// The real form with a factor from each of `t` and `v`.
    virtual void sum_f_t(const store_3<float>& v, const number_store_3& t, int row,
                         const number_store_3& w, const number_store_3& out,
                         const moment_3& moment) const = 0;
    /// Each row of `out` takes that of `in` times its element of `scale`.
    virtual void sum_scaled(const number_store_3& out, const number_store_3& in,
                            const list_0_3<double>& scale) const = 0;
    /// Each row of `out` takes that of `in`.
    virtual void sum_rows(const number_store_3& out, const number_store_3& in) const = 0;
    /// Each row of `out` is multiplied by its element of `scale`, whatever the object.
    virtual void scale_rows(const number_store_3& out, const list_0_3<double>& scale) const = 0;

    /// The object with the same mask that stores; of a storing object, itself.
    const B_sum_into_mag_3* twin;
    /// Which of the six numbers of a row may differ from 0: the highest bit for the first.
    int mask;

protected:
    B_sum_into_mag_3(const B_sum_into_mag_3* twin_, int mask_) : twin(twin_), mask(mask_) {}
    ~B_sum_into_mag_3() = default;
};

/// The entries: one policy for each number of a row. Those of the table have six equal ones.
template <typename P0, typename P1, typename P2, typename P3, typename P4, typename P5>
class sum_into_mag_3;

using adding_sum_into_mag_3 = sum_into_mag_3<d_sum_into_mag_1, d_sum_into_mag_1, d_sum_into_mag_1,
                                             d_sum_into_mag_1, d_sum_into_mag_1, d_sum_into_mag_1>;
using storing_sum_into_mag_3 = sum_into_mag_3<e_sum_into_mag_1, e_sum_into_mag_1, e_sum_into_mag_1,
                                              e_sum_into_mag_1, e_sum_into_mag_1, e_sum_into_mag_1>;

/// The adding object with the mask `m`, 0 to 63. It lives until the process ends.
const B_sum_into_mag_3* mask_entry(int m);

/// The mask of a moment and the entry that it selects. Numbers up to 1e-11 count as 0.
struct moment_mask_3 {
    int mask;
    const B_sum_into_mag_3* entry;
};
moment_mask_3 mask_of(const moment_3& moment);

/// The entry for the union of the masks.
const B_sum_into_mag_3* combine(const B_sum_into_mag_3* a, const B_sum_into_mag_3* b);
const B_sum_into_mag_3* combine(const mag_entry_list_3& list);
