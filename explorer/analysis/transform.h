#pragma once

#include <array>
#include <span>

#include "group/space_group.h"

namespace lomar {

/// The group in other axes, all operators kept: a larger cell gets the translations of the old one
/// as centring. Where the table has the operators, the result is that setting; else it has a Hall
/// symbol with the change of basis. Throws std::domain_error when the axes lose something: it names
/// the axis that is no lattice translation, or the operator that is no longer whole.
space_group in_other_axes(const space_group& group, const basis_change& change);

/// The change from a group's axes to those of another setting of the same number, by way of the
/// standard setting. Throws std::domain_error when the numbers differ.
basis_change change_between(const space_group& from, const space_group& to);

/// a, b, c, alpha, beta, gamma; angles in degrees.
using cell_lengths = std::array<double, 6>;

/// The cell of the new axes: G' = P^T G P.
cell_lengths transformed_cell(const cell_lengths& cell, const fraction_matrix& matrix);
/// Throws std::domain_error, with the reason, for lengths or angles that make no cell.
void check_cell(const cell_lengths& cell);
double cell_volume(const cell_lengths& cell);
/// Lengths of the reciprocal axes.
std::array<double, 3> reciprocal_lengths(const cell_lengths& cell);

/// The indices of a reflection in the new axes, (h' k' l') = (h k l) P; not whole where the new
/// cell is a smaller one and the old centring forbids the reflection.
fraction_vector transformed_indices(const fraction_vector& hkl, const fraction_matrix& matrix);

}  // namespace lomar
