#pragma once

#include "reflections/phase_records.h"

// The last step of magnetic sums: what a group of operators scatters is written to `out`, where
// each reflection has a row of six numbers, real and imaginary part for one axis after the other.
// They come from the pair (s, c) of `w`, a real factor, and the moment of the group:
//
//     real form:  c M0, s M3, c M1, s M4, c M2, s M5
//     i form:     the same with -s for c, and c for s
//
// Nothing is checked: `w`, `t`, `v` and `out` must have room for all rows of `out`.

/// What becomes of a new value: d adds it to the number in the row, e overwrites that.
struct d_sum_into_mag_1 {
    static void take(double& to, double value) { to += value; }
};
struct e_sum_into_mag_1 {
    static void take(double& to, double value) { to = value; }
};

/// The operations. Objects either add to the rows or overwrite them; below, "gives" means
/// either. The mask of an object names numbers of the moment; all objects work on all six numbers.
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
    /// Gives row i of `in` times scale[i] to row i of `out`, all six numbers.
    virtual void sum_scaled(const number_store_3& out, const number_store_3& in,
                            const list_0_3<double>& scale) const = 0;
    /// As sum_scaled without a scale.
    virtual void sum_rows(const number_store_3& out, const number_store_3& in) const = 0;
    /// Multiplies row i of `out` by scale[i]. All objects do the same here.
    virtual void scale_rows(const number_store_3& out, const list_0_3<double>& scale) const = 0;

    /// For an object that adds, the one to use for the first contribution. Others are their own.
    const B_sum_into_mag_3* twin;
    /// 32 for the first number of a row down to 1 for the last, added up for those that the moment
    /// doesn't leave at 0.
    int mask;

protected:
    B_sum_into_mag_3(const B_sum_into_mag_3* twin_, int mask_) : twin(twin_), mask(mask_) {}
    ~B_sum_into_mag_3() = default;
};

/// The class of the objects. A parameter says whether its number of the row is added to (d) or
/// overwritten (e).
template <typename P0, typename P1, typename P2, typename P3, typename P4, typename P5>
class sum_into_mag_3;

using adding_sum_into_mag_3 = sum_into_mag_3<d_sum_into_mag_1, d_sum_into_mag_1, d_sum_into_mag_1,
                                             d_sum_into_mag_1, d_sum_into_mag_1, d_sum_into_mag_1>;
using storing_sum_into_mag_3 = sum_into_mag_3<e_sum_into_mag_1, e_sum_into_mag_1, e_sum_into_mag_1,
                                              e_sum_into_mag_1, e_sum_into_mag_1, e_sum_into_mag_1>;

/// The object for the mask `m`, 0 to 63, that adds. The 128 objects are shared and never go.
const B_sum_into_mag_3* mask_entry(int m);

/// What mask_of finds out: which numbers of a moment aren't 0, and the object with this mask. A
/// number of at most 1e-11 in size is taken for 0.
struct moment_mask_3 {
    int mask;
    const B_sum_into_mag_3* entry;
};
moment_mask_3 mask_of(const moment_3& moment);

/// The object whose mask has the bits of both, or of a whole list.
const B_sum_into_mag_3* combine(const B_sum_into_mag_3* a, const B_sum_into_mag_3* b);
const B_sum_into_mag_3* combine(const mag_entry_list_3& list);
