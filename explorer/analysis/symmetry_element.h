#pragma once

#include <string>
#include <vector>

#include "group/symop.h"

namespace lomar {

/// What an operator (W, w) does, and where: International Tables for Crystallography A (2016),
/// 1.2.2.4 and 1.5.4. It holds for any axes in which W is whole.
struct symmetry_element {
    /// 1, -1, 2, -2 (written m), 3, -3, 4, -4, 6, -6.
    int kind = 1;
    /// +1 if the rotation (of -W for -3, -4 and -6) is anticlockwise as seen from the tip of the
    /// axis, else -1; 0 for the orders 1 and 2.
    int sense = 0;
    /// The rotation axis, for m the normal as a vector of the direct lattice, in smallest integers;
    /// 0 0 0 for kinds 1 and -1. The first nonzero component is positive, but for the body
    /// diagonals, which have an even number of minus signs, and for -1 0 1.
    int_vector axis{};
    /// The screw or glide part: the translation of the n-th power over n, the order of W. The whole
    /// translation for kind 1.
    fraction_vector intrinsic;
    /// A point that (W, w - intrinsic) leaves fixed, that with 0 for the parameters of the
    /// location; the inversion point for -1, -3, -4 and -6. Not reduced to the cell.
    fraction_vector point;
    /// They span the fixed points from `point`: none, the axis, or two vectors in a plane. Each is
    /// in smallest integers; those of a plane are positive at the coordinate of their parameter.
    std::vector<int_vector> directions;
};

/// Throws std::domain_error when no power up to the sixth of the rotation part is the identity, so
/// that no crystal has it. Time reversal plays no part.
symmetry_element element_of(const symop& op);

/// `m` for -2, else the number: `-3`.
std::string kind_text(int kind);

/// The components of an axis, `1-10`; with commas between them if one is beyond 9.
std::string axis_text(const int_vector& axis);

/// The fixed points of (W, w - intrinsic): `0,y,1/4`, `2x,x,z`, `-x,x+1/2,-x-1/2`, or the inversion
/// point. A line has the parameter of its first varying coordinate, a plane those of the first two
/// that vary independently. Empty for kind 1.
std::string location_text(const symmetry_element& element);

/// The Seitz symbol: `{ 3+_1-1-1 | 0 1/2 1/2 }`, with a prime after the kind for time reversal,
/// `{ 2'_010 | 0 0 0 }`. Components of an axis beyond 9 have commas between them. Throws as
/// element_of.
std::string seitz_text(const symop& op);
/// The same, where its element is known.
std::string seitz_text(const symop& op, const symmetry_element& element);

}  // namespace lomar
