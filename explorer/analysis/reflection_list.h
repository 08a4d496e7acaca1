#pragma once

#include <optional>
#include <stdexcept>
#include <vector>

#include "analysis/cell.h"
#include "analysis/conditions.h"
#include "group/space_group.h"

namespace lomar {

/// One of a set of equivalent reflections, the greatest of them by h, then k, then l.
struct listed_reflection {
    int h = 0, k = 0, l = 0;
    std::int16_t multiplicity = 1;  ///< how many there are, Friedel mates included
    std::int16_t broken = -1;       ///< the place of the first condition that it breaks; -1: none
    double inverse_square = 0;      ///< 1/d^2; 0 without a cell

    /// 0 without a cell.
    double d() const;
    /// The scattering angle in degrees; none beyond the sphere of reflection, or without a cell.
    std::optional<double> two_theta(double wavelength) const;
};

/// A list that would be too long; what() is one line.
class too_many_reflections : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

inline constexpr std::size_t most_reflections = 10'000'000;

/// The reflections of which an equivalent one has |h|, |k| and |l| up to the limits, in the order
/// of .hkl: by h, then k, then l. 0 0 0 is none. With `absent` also those that the group forbids.
/// Throws too_many_reflections beyond most_reflections and for limits beyond 100000.
std::vector<listed_reflection> reflections_within(
    const space_group& group, const std::vector<reflection_condition>& conditions,
    const int_vector& limits, bool absent);

/// The reflections with d >= d_min (1 - 10^-9), by falling d; those whose d agree to 10^-12 are in
/// the order of .hkl. The cell must be one that fitting_cell gives. Throws as reflections_within,
/// and std::invalid_argument for a d_min that isn't above 0.
std::vector<listed_reflection> reflections_down_to(
    const space_group& group, const std::vector<reflection_condition>& conditions,
    const unit_cell& cell, double d_min, bool absent);

}  // namespace lomar
