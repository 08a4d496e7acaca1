#pragma once

#include "foundation/sorted.h"
#include "reflections/hkl_classes.h"

/// One way in which a Laue class takes reflections to equivalent ones.
struct laue_element_3 {
    triple_3 row[3];  ///< the new index i is row[i] times (h, k, l), with coefficients -1, 0 and 1
    bool in_group;    ///< an operator of the group does this; if not, one does the negative
    triple_3 shift;   ///< the translation of such an operator, each part 0 to 359

    triple_3 image(int h, int k, int l) const {
        triple_3 result;
        for (int i = 0; i < 3; ++i) result[i] = row[i][0] * h + row[i][1] * k + row[i][2] * l;
        return result;
    }
};

/// The phase that a translation gives to a reflection: 0 if it is a number of whole turns.
inline int phase_of_shift_3(const triple_3& shift, int h, int k, int l) {
    return (shift[0] * h + shift[1] * k + shift[2] * l) % xyz_op_3::edge;
}

/// A group of operators, as far as its reflections go: what its Laue class does to indices, and
/// what its translations do to phases. The Laue class are the rotations of the group and their
/// negatives, each transposed: a rotation R takes the reflection h to h R.
///
/// With a group, all that is known of one member of an orbit is known of the others:
///
/// - The orbit has as many members as the Laue class has elements, divided by the number of those
///   that leave a member where it is.
/// - The structure factor of an atom at x is the sum of exp 2 pi i h (R x + t) over the operators.
///   An operator (R, t) only exchanges the terms of this sum, and so F(h R) exp(2 pi i h t) = F(h).
///   So a reflection is absent if some (R, t) with h R = h has an h t that is no whole number, and
///   otherwise the terms with one h R add up, and F vanishes for no more than single positions x.
class laue_group_3 {
public:
    /// Takes a group from its operators and the class lists, which have their Friedel mates. False
    /// if these don't belong together: if the operators aren't all different, or no group, or the
    /// lists hold more or less than the elements of the Laue class with the columns of the missing
    /// indices struck out. Lists that are far larger than those of any setting are refused, too.
    bool set_up(const xyz_list_3& ops, const class_lists_3& classes);

    int order() const { return elements.n; }
    /// The place of the negative of an element.
    int negative_of(int element) const;

    list_0_3<laue_element_3> elements;  ///< of all the Laue class, sorted by their rows
    list_0_3<triple_3> lattice;         ///< translations of the operators without a rotation, but 0
    triple_3 period;  ///< the phases of all translations repeat with so much of an index

private:
    void add_operator(const xyz_op_3& op);
    void add_negatives();
    void find_periods();
};

bool element_less(const laue_element_3& a, const laue_element_3& b);
