#pragma once

#include <array>
#include <cstdint>

#include "group/fraction.h"

namespace lomar {

/// Whole coordinates, small enough that products of three stay in 64 bits: each function throws
/// std::overflow_error beyond that.
using long_vector = std::array<std::int64_t, 3>;

long_vector operator-(const long_vector& a);
/// a + n b.
long_vector plus(const long_vector& a, std::int64_t n, const long_vector& b);
long_vector times(const int_matrix& m, const long_vector& v);
long_vector cross(const long_vector& a, const long_vector& b);
std::int64_t dot(const long_vector& a, const long_vector& b);
std::int64_t determinant(const long_vector& a, const long_vector& b, const long_vector& c);
bool is_null(const long_vector& v);
/// Divided by the greatest common divisor of the coordinates.
long_vector primitive(const long_vector& v);
/// The matrix with these columns.
int_matrix matrix_of_columns(const long_vector& a, const long_vector& b, const long_vector& c);

bool is_whole(const fraction_matrix& m);

/// The shortest vector along the axis of a proper rotation that is not the unit, either way.
long_vector axis_of(const int_matrix& rotation);
/// A vector n such that n . v = 0 for all v at right angles to the axis of a proper rotation of
/// that order, above 1.
long_vector plane_of(const int_matrix& rotation, int order);
/// Two vectors of which all whole v with n . v = 0 are sums of multiples.
std::array<long_vector, 2> basis_of_plane(const long_vector& n);
/// Of the lattice of two vectors one that makes a basis of it together with its image under a
/// rotation of order 3 or 4 in their plane.
long_vector turned_basis(std::array<long_vector, 2> plane, const int_matrix& rotation);

}  // namespace lomar
