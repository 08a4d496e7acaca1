#pragma once

#include <string>
#include <string_view>

#include "group/symop.h"

namespace lomar {

/// A change of axes and origin: (a', b', c') = (a, b, c) P, and the new origin at p in the old
/// coordinates. A coordinate changes as x = P x' + p, an operator as
/// (W', w') = (P, p)^-1 (W, w) (P, p): International Tables for Crystallography A (2016), 1.5.2.
struct basis_change {
    fraction_matrix matrix = to_fractions(unit_matrix);  ///< P
    fraction_vector origin;                              ///< p

    friend bool operator==(const basis_change& a, const basis_change& b) = default;
};

/// The inverse change. Throws std::domain_error for a determinant of 0.
basis_change inverse(const basis_change& change);
/// First `first`, then `second`, whose old axes are the new ones of `first`.
basis_change operator*(const basis_change& first, const basis_change& second);

/// An operator, and a point, in the new axes; an operator's translation isn't reduced. Throws
/// std::domain_error when the new rotation is not whole: the new lattice has no such operator.
symop transformed(const symop& op, const basis_change& change);
fraction_vector transformed(const fraction_vector& point, const basis_change& change);

/// One expression for each new axis, `1/2a-1/2b,1/2a+1/2b,c`.
std::string basis_text(const basis_change& change);

/// The matrix of such a text. Also read: `a/2+b/2`, `2*c`, decimals such as `0.5a`, blanks, capital
/// letters. Throws std::invalid_argument, whose message names what can't be read, also when the
/// axes lie in one plane.
fraction_matrix parse_basis(std::string_view text);
/// Three numbers with commas or blanks between them: `0,1/4,-0.125`. Errors as parse_basis.
fraction_vector parse_point(std::string_view text);
/// One number: `3`, `-1/4`, `.125`, `0.5`. Up to 15 decimals are read exactly, so that `0.3333` is
/// 3333/10000; further ones are rounded. Errors as parse_basis.
fraction parse_number(std::string_view text);
/// One number as it is copied from elsewhere: also `1e-5`, to 12 decimals, and `0.25(3)`, whose
/// uncertainty is dropped. Errors as parse_basis.
fraction parse_coordinate(std::string_view text);

}  // namespace lomar
