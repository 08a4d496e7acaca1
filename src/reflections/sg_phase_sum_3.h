#pragma once

#include "foundation/sorted.h"
#include "foundation/string_3.h"
#include "reflections/phase_records.h"
#include "symmetry/xyz_op_3.h"

/// Two functions of one angle, next to each other in memory.
struct sine_cosine_3 {
    double sine;
    double cosine;
};

/// A table for whole degrees, 0 to 359. A translation times indices gives such an angle, as its
/// unit is 1/360.
const sine_cosine_3* phase_table_3();

/// 2 pi times the coordinates that the rotation of a group gives to one position.
struct phase_triple_3 {
    double row[3];
};

using phase_list_3 = list_0_3<phase_triple_3>;

/// The operators of a group, ordered so that a structure factor needs few sines and cosines. The
/// angle of an operator's negative is its own but for the sign, so the two are kept as one entry.
/// All entries with one rotation are a group: for them an angle is computed once, and what their
/// translations add to it is looked up.
class sg_phase_sum_3 : public kernel_tables_3, public moment_tables_3 {
public:
    static constexpr int has_unpaired = 1;  ///< flag: structure factors may be complex
    static constexpr int all_paired = 2;    ///< flag: no operator is alone in its entry

    /// Orders the operators. They aren't copied: the list must stay as long as this object.
    void set_up(const xyz_list_3& ops);

    /// What the groups make of a position in fractional coordinates; see phase_triple_3.
    void position_phases(const double position[3], phase_list_3& phases) const;

    /// Looks up what translations do to a reflection, for one group after the other.
    void translation_sums(int h, int k, int l, sum_list_3& sums) const;

    /// Structure factor of one atom: its real part is added to `a`, its imaginary part to `b`.
    /// `phases` come from position_phases, `sums` from translation_sums for the same h, k, l.
    void add_position_terms(double& b, double& a, const phase_list_3& phases, int h, int k, int l,
                            const sum_list_3& sums) const;

    // Kernels for whole lists of reflections (library/scattering/sg_phase_sum_3_kernels.cpp). The
    // road to them: start_sums, record_sums for each reflection, select_kernels.

    /// Begins a new list of `n` reflections. The one before is lost.
    void start_sums(int n);

    /// Makes h, k, l the reflection number `r` of the list.
    void record_sums(int h, int k, int l, int r);

    /// Ends the list of `n` reflections: finds the fastest kernels that fit each group. Where all
    /// reflections have equal sums, sum_index shrinks to one place.
    void select_kernels(int n);

    // For operators with a tag of 1 or -1, or 2 for both
    // (library/magnetic/sg_phase_sum_3_magnetic.cpp).

    /// As set_up, but one rotation with two tags makes two groups.
    void set_up_magnetic(const xyz_list_3& ops);

    /// Works out axis_moments and axis_entries for axis 0, 1 or 2, if that wasn't done before.
    void find_axis_moments_3(int axis);

    /// 0 if the symmetry cancels all that a moment along the axis scatters, else 1. Calls
    /// find_axis_moments_3.
    int axis_has_moment_3(int axis);

    /// As find_axis_moments_3, for a moment that is v[0], v[1], v[2] along the three axes. The
    /// results are arguments and aren't kept.
    void vector_moments_3(const double v[3], moment_list_3& moments,
                          mag_entry_list_3& moment_entries) const;

    /// Shifts `phases`, one for each group, by the translation of the operator that comes first in
    /// the group.
    void add_group_translations_3(phase_list_3& phases) const;

    const xyz_list_3* ops = nullptr;
    // Operators are given by their index in ops, groups and entries by their own number.
    list_0_3<int_list_3> entries;   ///< one operator, or one and its negative
    list_0_3<int_list_3> groups;    ///< of each entry that belongs to the group, one operator
    string_list_3 group_kinds;      ///< how many operators those entries have, as digits
    int_list_3 group_unpaired;      ///< 1 if one of those digits is 1
    list_0_3<triple_3> rows;        ///< of all rotations, each once
    list_0_3<triple_3> group_rows;  ///< which three of them are the group's rotation
    int flags = 0;

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
