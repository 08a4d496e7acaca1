#pragma once

#include <string>
#include <vector>

#include "group/space_group.h"

namespace lomar {

/// Reflections that share the conditions of some operators: all (hkl), those of a plane through the
/// origin of the reciprocal lattice (h0l) or those of a row (00l).
struct hkl_class {
    /// Its first n_parameters columns are a primitive Z-basis of the class, the others are 0:
    /// h, k, l = pattern (p, q, r).
    int_matrix pattern{};
    int n_parameters = 0;
    /// Row i gives parameter i of a reflection of the class: p, q, r = parameters (h, k, l).
    int_matrix parameters{};
    /// What the parameters are called: indices where these are parameters (h and l of hhl), else p
    /// and q.
    std::string letters;

    bool contains(const int_vector& hkl) const;
    bool contains(const hkl_class& other) const;
    /// Whether a rotation leaves each of its reflections as it is: W^T h = h.
    bool fixed_by(const int_matrix& rotation) const;

    /// `h0l`, `hh-2hl` with four indices, `(2p,3p,5p)` where no index serves as a parameter.
    std::string name(bool four_indices) const;
};

hkl_class all_reflections();
/// The plane of the reflections with h . normal = 0; the normal is a primitive vector of the direct
/// lattice.
hkl_class reflections_of_zone(const int_vector& normal);
/// The multiples of a primitive vector of the reciprocal lattice.
hkl_class reflections_of_row(const int_vector& direction);
/// The reflections that a rotation leaves as they are; no parameters if it leaves none.
hkl_class reflections_fixed_by(const int_matrix& rotation);

/// The classes for which the tables print conditions in such axes, in their order, the integral one
/// first: International Tables for Crystallography A (2016), 2.1.3.13. The planes normal to and the
/// rows along the symmetry directions of the lattice, each member of a set of equivalent ones by
/// itself. The integral class alone for triclinic groups and in unconventional axes.
std::vector<hkl_class> conventional_classes(const space_group& group);

/// Whether the operators are those of hexagonal axes, where reflections have four indices.
bool has_hexagonal_axes(const space_group& group);

}  // namespace lomar
