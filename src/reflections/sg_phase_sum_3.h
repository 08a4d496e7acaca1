#pragma once

#include "foundation/sorted.h"
#include "foundation/string_3.h"
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

/// The translation sums of one reflection over one group of operators: cosines in A, sines in B;
/// in A1 and B1 only of the operators without an inversion partner, in A2 and B2 of all.
struct translation_sum_3 {
    double a1;
    double b1;
    double a2;
    double b2;
};

using phase_list_3 = list_0_3<phase_triple_3>;
using sum_list_3 = list_0_3<translation_sum_3>;

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

    const xyz_list_3* ops = nullptr;
    list_0_3<int_list_3> entries;   ///< the operators of each entry, one or two
    list_0_3<int_list_3> groups;    ///< for each rotation, the first operator of its entries
    string_list_3 group_kinds;      ///< parallel to groups: `2` for an inversion pair, else `1`
    int_list_3 group_unpaired;      ///< 1 if the kinds of the group contain `1`
    list_0_3<triple_3> rows;        ///< the distinct rotation rows
    list_0_3<triple_3> group_rows;  ///< for each group the indices of its rows
    int flags = 0;

private:
    void pair_entries(xyz_list_3& sorted, int_list_3& kinds);
    void group_entries(xyz_list_3& rotations, const int_list_3& kinds);
    void collect_rows();
};
