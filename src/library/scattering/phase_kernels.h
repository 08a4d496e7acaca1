#pragma once

#include "reflections/phase_records.h"

// The kernels of structure factors. A kernel takes the pair (s, c) of an atom's phase in a group of
// operators through the translation sums of that group, for a whole list of reflections:
//
//     new c = (c * A2 - s * B2) * f      the real part of the group's contribution
//     new s = (s * A1 + c * B1) * f      its imaginary part
//
// Where all operators of a group are in inversion pairs the imaginary part of the sum vanishes; the
// new s is then (s * A2 + c * B2) * f, for magnetic sums, and is never written to `out`. The factor
// f is 1 or comes from `t`.
//
// There is one kernel for each role (a table of sg_phase_sum_3) and each case (kernel_case_3), so
// that loops have no branches and leave out what a case says is zero. Nothing is checked: `w`, `t`
// and `out` must have room for n reflections.

/// The kernels of one case, by role.
struct phase_kernel_set_3 {
    kernel_pair_3<out_kernel_3> rotate_out;      ///< writes to out, and back to w
    kernel_pair_3<out_t_kernel_3> rotate_out_t;  ///< the same with a factor
    kernel_pair_3<out_kernel_3> phase_out;       ///< writes to out alone
    kernel_pair_3<out_t_kernel_3> phase_out_t;
    rotate_kernel_3 rotate;  ///< writes back to w alone
    rotate_t_kernel_3 rotate_t;
};

/// What a kernel can count on.
struct kernel_case_3 {
    bool unpaired;    ///< the group has operators without an inversion partner
    bool per_column;  ///< the reflections have different sums; else one record serves for all
    bool has_a;       ///< a cosine sum may differ from 0
    bool has_b;       ///< a sine sum may differ from 0
};

/// The number of a case, 1 to 12: 1 to 6 for groups without unpaired operators, 7 to 12 with; in
/// each half first the three with one record. Of three the first has both kinds of sums, the
/// second only sine sums (or none), the third only cosine sums.
int kernel_case_number_3(const kernel_case_3& c);

/// The kernels of a case, by its number.
const phase_kernel_set_3& phase_kernels_3(int number);
