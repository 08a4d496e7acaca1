#pragma once

#include "foundation/sorted.h"
#include "foundation/string_3.h"
#include "reflections/phase_records.h"
#include "symmetry/xyz_op_3.h"

/// The sine and the cosine of an angle.
struct sine_cosine_3 {
    double sine;
    double cosine;
};

/// The sines and cosines of 0 to 359 degrees: the phases of translations, which are whole degrees.
const sine_cosine_3* phase_table_3();

/// The phases of the three rotation rows of a group of operators at one position.
struct phase_triple_3 {
    double row[3];
};

using phase_list_3 = list_0_3<phase_triple_3>;

/// Folds the operators of a group into as few trigonometric evaluations as a structure factor can
/// do with: pairs of operators related by the inversion become one entry, and entries with the
/// same rotation one group, whose translations need only integers and a table.
class sg_phase_sum_3 {
public:
    static constexpr int has_unpaired = 1;  ///< flag: sums can have an imaginary part
    static constexpr int all_paired = 2;    ///< flag: every operator has its inversion partner

    /// Works all of it out. The list isn't changed and must outlive the object.
    void set_up(const xyz_list_3& ops);

    /// The phases of the groups, in radians, at a position in fractional coordinates.
    void position_phases(const double position[3], phase_list_3& phases) const;

    /// The translation sums of a reflection, one for each group.
    void translation_sums(int h, int k, int l, sum_list_3& sums) const;

    /// Adds to `a` and `b` the real and the imaginary part of the structure factor of an atom at
    /// the position of `phases`. `sums` are the translation sums of the reflection.
    void add_position_terms(double& b, double& a, const phase_list_3& phases, int h, int k, int l,
                            const sum_list_3& sums) const;

    // Kernels for whole lists of reflections (library/kernel_selection.cpp). The road to them:
    // start_sums, record_sums for each reflection, select_kernels.

    /// Makes room for the sums of `n` reflections; what was recorded before is gone.
    void start_sums(int n);

    /// Enters the translation sums of a reflection in sum_index, at place `r`.
    void record_sums(int h, int k, int l, int r);

    /// Chooses the kernels of each group for the `n` reflections that were recorded. A group whose
    /// sums are the same for all of them keeps one entry in sum_index.
    void select_kernels(int n);

    // Magnetic groups, whose operators carry a sign in their tag (library/group_moments.cpp).

    /// As set_up; operators of equal rotation and different sign come into different groups.
    void set_up_magnetic(const xyz_list_3& ops);

    /// Fills axis_moments and axis_entries for an axis, unless they are there.
    void find_axis_moments_3(int axis);

    /// 1 if a moment along the axis contributes anything. Fills the lists of the axis.
    int axis_has_moment_3(int axis);

    /// The moments of the groups, and their entries in the mask table, for a moment with these
    /// components along the axes.
    void vector_moments_3(const double v[3], moment_list_3& moments,
                          mag_entry_list_3& moment_entries) const;

    /// Adds to the phases of each group the phases of the translations of its first member.
    void add_group_translations_3(phase_list_3& phases) const;

    const xyz_list_3* ops = nullptr;
    list_0_3<int_list_3> entries;   ///< the operators of each entry, one or two
    list_0_3<int_list_3> groups;    ///< for each rotation, the first operator of its entries
    string_list_3 group_kinds;      ///< parallel to groups: `2` for an inversion pair, else `1`
    int_list_3 group_unpaired;      ///< 1 if the kinds of the group contain `1`
    list_0_3<triple_3> rows;        ///< the distinct rotation rows
    list_0_3<triple_3> group_rows;  ///< for each group the indices of its rows
    int flags = 0;

    sum_list_3 sum_records;          ///< all different
    list_0_3<int_list_3> sum_index;  ///< for each group and reflection a place in sum_records
    list_0_3<kernel_pair_3<out_kernel_3>> rotate_out;  ///< for each group, as all that follow
    list_0_3<kernel_pair_3<out_t_kernel_3>> rotate_out_t;
    list_0_3<kernel_pair_3<out_kernel_3>> phase_out;
    list_0_3<kernel_pair_3<out_t_kernel_3>> phase_out_t;
    list_0_3<out_kernel_3> phase_add;
    list_0_3<out_t_kernel_3> phase_add_t;
    list_0_3<rotate_kernel_3> rotate;
    list_0_3<rotate_t_kernel_3> rotate_t;

    list_0_3<int_list_3> mag_members;  ///< for each group, its operators that carry a single sign
    list_0_3<int_list_3> mag_kinds;    ///< parallel: 0 unpaired, 1 in a pair of equal sign, 2 and
                                       ///< 3 the two sides of a pair of opposite sign
    list_0_3<list_0_3<mag_weight_3>> mag_weights;  ///< parallel
    moment_list_3 axis_moments[3];                 ///< empty until asked for
    mag_entry_list_3 axis_entries[3];

private:
    // What the set-up finds beside the groups when the operators carry signs.
    struct magnetic_steps {
        list_0_3<int_list_3> member_kinds;  // parallel to entries
        int_list_3 entry_groups;            // the group of each entry
    };

    void fold(const xyz_list_3& ops, magnetic_steps* magnetic);
    void pair_entries(xyz_list_3& sorted, int_list_3& kinds, magnetic_steps* magnetic);
    void group_entries(xyz_list_3& rotations, const int_list_3& kinds, magnetic_steps* magnetic);
    void collect_rows();
    void collect_members(const magnetic_steps& magnetic, int_list_3& counts);
    void weigh_members(int g, int count);
    template <typename Column>
    void find_moments(Column column, moment_list_3& moments,
                      mag_entry_list_3& moment_entries) const;
};
