#pragma once

#include "foundation/sorted.h"

// The records and number stores of structure-factor sums: what sg_phase_sum_3 keeps beside the
// folded operators, and what its kernels work on.

/// The phases that the translations of a group of operators give a reflection, added up: a1 and a2
/// are sums of cosines, b1 and b2 of sines. a1 and b1 leave out inversion pairs, a2 and b2 don't.
struct translation_sum_3 {
    double a1;
    double b1;
    double a2;
    double b2;
};

using sum_list_3 = list_0_3<translation_sum_3>;

/// Numbers that belong to somebody else, as a matrix: element (row, column) is at
/// p[stride * row + column]. With a stride of 0 all rows are one and the same.
template <typename T>
struct store_3 {
    T* p = nullptr;
    int stride = 0;
    int n = 0;  ///< rows; asked for by the magnetic sums alone
};

// The stores of a kernel, and the place of an element:
//
//     w    a sine, then a cosine:   p[(stride * group + reflection) * 2]
//     t    a factor for that pair:  p[stride * group + reflection]
//     out  the results:             p[stride * reflection]
//
// In `out` the cosine part comes before the sine part, each added or stored.
using number_store_3 = store_3<double>;

// A kernel carries out one step for the first n reflections. `index` gives for each of them the
// place of its translation sums in `sums`; `row` is the group.
using rotate_kernel_3 = void (*)(const number_store_3& w, const int_list_3& index,
                                 const sum_list_3& sums, int row, int n);
using rotate_t_kernel_3 = void (*)(const number_store_3& w, const int_list_3& index,
                                   const sum_list_3& sums, int row, int n, const number_store_3& t);
using out_kernel_3 = void (*)(const number_store_3& out, const number_store_3& w,
                              const int_list_3& index, const sum_list_3& sums, int row, int n);
using out_t_kernel_3 = void (*)(const number_store_3& out, const number_store_3& w,
                                const int_list_3& index, const sum_list_3& sums, int row, int n,
                                const number_store_3& t);

/// Two kernels that differ in what they do to `out`: overwrite it, or add to it.
template <typename Kernel>
struct kernel_pair_3 {
    Kernel first;
    Kernel next;
};

/// How a group of magnetic operators scatters for one direction of the moment: the vector of the
/// real part in 0 to 2, that of the imaginary part in 3 to 5.
struct moment_3 {
    double m[6];
};

/// The weights of an operator in the real and in the imaginary part of a moment.
struct mag_weight_3 {
    double first;
    double second;
};

class B_sum_into_mag_3;
using moment_list_3 = list_0_3<moment_3>;
using mag_entry_list_3 = list_0_3<const B_sum_into_mag_3*>;

/// The translation sums of a list of reflections, and for each group of operators the kernels that
/// go with them.
struct kernel_tables_3 {
    sum_list_3 sum_records;          ///< all different
    list_0_3<int_list_3> sum_index;  ///< for each group and reflection a place in sum_records
    list_0_3<kernel_pair_3<out_kernel_3>> rotate_out;
    list_0_3<kernel_pair_3<out_t_kernel_3>> rotate_out_t;
    list_0_3<kernel_pair_3<out_kernel_3>> phase_out;
    list_0_3<kernel_pair_3<out_t_kernel_3>> phase_out_t;
    list_0_3<out_kernel_3> phase_add;
    list_0_3<out_t_kernel_3> phase_add_t;
    list_0_3<rotate_kernel_3> rotate;
    list_0_3<rotate_t_kernel_3> rotate_t;
};

/// What magnetic sums know of each group of operators.
struct moment_tables_3 {
    list_0_3<int_list_3> mag_members;  ///< the operators of a group but for those with a tag of 2
    list_0_3<int_list_3> mag_kinds;    ///< what they are in their entry: 0 alone, 1 one of two with
                                       ///< the same tag, 2 the first and 3 the second of two with
                                       ///< different tags
    list_0_3<list_0_3<mag_weight_3>> mag_weights;  ///< what they weigh
    moment_list_3 axis_moments[3];                 ///< empty until asked for
    mag_entry_list_3 axis_entries[3];
};
