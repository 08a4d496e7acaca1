#pragma once

#include "reflections/laue_group_3.h"
#include "reflections/near_zeros_3.h"
#include "reflections/phase_factors_3.h"
#include "reflections/progression_3.h"

/// Tells for most reflections along a line of l at the cost of a few multiplications that their
/// structure factor, of an atom at the first test position, is so large that the full evaluation
/// finds them present, whichever member of the orbit it takes.
///
/// What is computed is Re(c F) for a number c of size 1, which is at most |F|; and |F| is the same
/// for all members. With an arbitrary c it isn't 0 for all of the reflections whose F is purely
/// real or purely imaginary. The sum for F is taken apart by indices: of each pair of opposite
/// rotations the term is a product of a factor for h, one for k, one for l and one for the
/// translation. Terms that agree in the factors for k and l are added once for an h, those that
/// agree in the one for l once for a line. Most groups are left with one sum there, cubic ones with
/// three. The factors for translations repeat with the residues of the indices.
///
/// With one sum, the members for which it is small are found for a whole block of l (near_zeros_3);
/// with more, the sum is computed for each.
///
/// Translations of the lattice are left out: the sum counts only where they give whole turns.
class line_presence_3 {
public:
    /// For indices of at most `reach` in size. The group must outlive the object. `position` is in
    /// fractions of the cell edges.
    void set_up(const laue_group_3& group, const double position[3], const int reach[3]);

    /// Takes up the line of h and k, from which members of `members` will be asked for.
    void begin_line(int h, int k, const progression_3& members);

    /// Whether the member l of the line is sure to be present.
    bool is_sure(int l) const;
    /// The first member of the line from the member `l` on, up to `last`, that isn't sure to be
    /// present. If all are, a number above `last`.
    int first_unsure(int l, int last);

private:
    // An axis of the cell as rotations see it: a column of an element, or its negative.
    struct column {
        triple_3 v;
        phase_factors_3 factors[3];  ///< for h, k and l
        phase_factor_3 at_h;         ///< the factor for the h of the line
        phase_factor_3 at_k;
    };
    struct term {
        int h_column;
        bool h_negative;
        int part;                     ///< among the sums for an h
        const laue_element_3* one;    ///< null if the group doesn't have it
        const laue_element_3* other;  ///< the negative of it
    };
    // Terms that agree in the factors for k and l.
    struct part_key {
        int k_column;
        bool k_negative;
        int sum;  ///< among the sums for a line

        bool operator==(const part_key&) const = default;
    };

    int find_column(const triple_3& v, bool& negative);
    void add_terms();
    void add_pair(const laue_element_3& one, const laue_element_3& other);
    void make_factors(const double position[3], const int reach[3]);
    void begin_h(int h);
    const phase_factor_3* parts_of(int k_residue, int l_residue);
    void begin_block(int start);
    void find_small(int start);
    int next_small(int l, int last) const;
    template <int n_fixed>
    int scan(int l, int last) const;

    const laue_group_3* group_ = nullptr;
    bool usable_ = false;
    list_0_3<column> columns_;
    list_0_3<term> terms_;
    list_0_3<part_key> part_keys_;
    list_0_3<int> sum_columns_;         ///< the column for l of each sum for a line
    list_0_3<phase_factor_3> l_table_;  ///< their small factors: for each l those of all sums
    list_0_3<phase_factor_3> parts_;    ///< for each residue of k and l those of the present h
    list_0_3<char> made_;               ///< 1 for those that are filled in
    list_0_3<phase_factor_3> sums_;     ///< for each residue of l among the members
    list_0_3<phase_factor_3> shifted_;  ///< the same, turned to the beginning of a block of l
    near_zeros_3 zeros_;                ///< for a block
    int_list_3 small_;                  ///< the members of the block with a small sum
    int block_start_ = 0;
    bool has_block_ = false;  ///< shifted_ is that of the line
    bool has_small_ = false;  ///< and small_, too
    progression_3 members_;
    int n_residues_ = 0;
    int h_ = -1;
};
