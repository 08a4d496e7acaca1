#pragma once

#include "drawing/lattice.h"

namespace lomar {

/// What all operators of one rotation part have in common, and how their translation gives the
/// place: both the screw or glide part and a fixed point are linear in the translation.
struct operator_action {
    int kind = 1;  ///< as in symmetry_element
    int sense = 0;
    int order = 1;         ///< n: the n-th power of the rotation part is the identity
    int_vector axis{};     ///< rotation axis; 0 0 0 for 1, -1 and m
    int_vector plane{};    ///< for m, the covector h of its plane h.x = const in smallest integers
    int_matrix sum{};      ///< 1 + W + ... + W^(n-1)
    int_matrix partial{};  ///< the sum of the sums of the first 0, 1, ... n-1 powers
    /// The translations with components from 0 to spread - 1 make an element of each class under
    /// the integer translations from one operator.
    int spread = 1;

    explicit operator_action(const int_matrix& rot);

    scaled_vector intrinsic(const scaled_vector& translation) const;
    /// The mean of the images of the origin under the operator without its intrinsic part.
    scaled_vector fixed_point(const scaled_vector& translation) const;
};

}  // namespace lomar
