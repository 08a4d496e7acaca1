#pragma once

#include <array>
#include <vector>

#include "group/fraction.h"

namespace lomar {

/// The lattice translations of a group in some axes: at first the whole ones, then all sums with
/// those that were added. Held as an echelon of three vectors (Hermite normal form), so that every
/// question has one answer whatever the order of adding. Throws std::overflow_error beyond 64 bits.
class translation_lattice {
public:
    bool contains(const fraction_vector& v) const;
    /// Adds a vector and all its multiples; false when it was there already.
    bool add(const fraction_vector& v);
    /// The one vector that represents v and all that differ from it by a lattice vector.
    fraction_vector reduced(fraction_vector v) const;
    /// A right-handed basis of short vectors, as columns: none gets shorter by a multiple of
    /// another, measured as if the axes were of one length and at right angles.
    fraction_matrix short_basis() const;
    /// The lattice vectors with all coordinates in [0, 1), the null vector first; their number is
    /// that of the lattice points in a cell. Throws std::runtime_error beyond `most` of them.
    std::vector<fraction_vector> in_cell(std::size_t most) const;

private:
    std::array<fraction_vector, 3> echelon_ = {fraction_vector{1, 0, 0}, fraction_vector{0, 1, 0},
                                               fraction_vector{0, 0, 1}};
};

fraction_vector column(const fraction_matrix& m, std::size_t i);
fraction_matrix from_columns(const fraction_vector& a, const fraction_vector& b,
                             const fraction_vector& c);

}  // namespace lomar
