#pragma once

#include <array>
#include <stdexcept>
#include <string>

#include "group/space_group.h"

namespace lomar {

/// The edges of a cell, and its angles in degrees.
struct unit_cell {
    double a = 1, b = 1, c = 1;
    double alpha = 90, beta = 90, gamma = 90;

    friend bool operator==(const unit_cell& x, const unit_cell& y) = default;
};

using metric_matrix = std::array<std::array<double, 3>, 3>;

/// A cell that is none, or not one of its group; what() is one line.
class cell_error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The scalar products of the edges. Throws cell_error unless the lengths are from 10^-6 to 10^6,
/// the angles between 0 and 180 and the three of them possible together.
metric_matrix metric_of(const unit_cell& cell);
double volume_of(const unit_cell& cell);
/// The scalar products of the reciprocal edges: 1/d^2 = h g h.
metric_matrix reciprocal_metric(const unit_cell& cell);

/// `10 10 12.5 90 90 120`.
std::string cell_text(const unit_cell& cell);

/// The cell with exactly the lengths and angles that the operators of the group demand: a = b for
/// an axis of order four along c, say. Lengths and angles that must be equal become their mean. A
/// cell that already fits, to 10^-9, stays as it is. Throws cell_error, which names the first
/// constraint that is broken by more than 0.1 % of a length or 0.1 degrees and a cell that fits,
/// and as metric_of.
unit_cell fitting_cell(const space_group& group, const unit_cell& cell);

}  // namespace lomar
