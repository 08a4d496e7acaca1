#pragma once

#include <string>
#include <vector>

#include "analysis/wyckoff.h"
#include "group/space_group.h"

namespace lomar {

/// A point of a crystal and its site.
struct site {
    fraction_vector point;  ///< on the site, next to the point asked for; not reduced to the cell
    fraction_vector shift;  ///< `point` less the point asked for
    char letter = 'a';
    int multiplicity = 1;
    std::string site_symmetry;           ///< as of wyckoff_position
    std::vector<symop> operators;        ///< all that fix `point`, with lattice translations
    std::vector<fraction_vector> orbit;  ///< all equivalent points in the cell, in [0, 1)
};

inline fraction largest_tolerance() { return {1, 10}; }

/// The most special site that a point is on, or is no further from than the tolerance in any
/// coordinate; of several the nearest. The point becomes the mean of its images under the operators
/// that fix the site.
///
/// Coordinates that have no common denominator up to 10^15 are first rounded to 10^-12. Throws
/// std::invalid_argument for a tolerance below 0 or above largest_tolerance(), and for a coordinate
/// beyond 10^6.
site site_of(const space_group& group, const fraction_vector& point,
             const fraction& tolerance = fraction(1, 1000));
/// The same with the group's positions, for many points.
site site_of(const space_group& group, const std::vector<wyckoff_position>& positions,
             const fraction_vector& point, const fraction& tolerance);

}  // namespace lomar
