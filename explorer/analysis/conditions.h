#pragma once

#include <string>
#include <vector>

#include "group/space_group.h"

namespace lomar {

/// A general reflection condition: a reflection of the class is present only if linear . (h, k, l)
/// is a multiple of the modulus.
struct reflection_condition {
    std::string reflection_class;  ///< `h0l`; with four indices on hexagonal axes: `h-h0l`
    /// Its columns that aren't 0, the first ones, are a primitive Z-basis of the class:
    /// h, k, l = pattern (p, q, r).
    int_matrix pattern{};
    int_vector linear{};
    int modulus = 1;
    std::string text;                 ///< `h0l: l = 2n`
    std::vector<std::string> causes;  ///< `c glide normal to b`, `21 screw along b`, `C centring`

    /// Whether the condition makes a reflection absent.
    bool broken_by(const int_vector& hkl) const;
    /// Left inverse of the pattern: p, q, r = parameters (h, k, l) for reflections of the class.
    int_matrix parameters{};
};

/// The general reflection conditions of a group, in the order of printed tables: integral, zonal,
/// serial. For each class of reflections with W^T h = h the product h . w must be whole
/// (International Tables for Crystallography A (2016), 2.1.3.13). A reflection is absent by the
/// group exactly if it breaks one of them. The classes are those that printed tables list,
/// conditions that follow from a wider class among them, and each of a set of equivalent classes by
/// itself. In unconventional axes, those that no wider class implies.
std::vector<reflection_condition> conditions_of(const space_group& group);

}  // namespace lomar
