#pragma once

#include <string_view>

#include "group/fraction.h"

namespace lomar {

/// New coordinates in terms of old ones, x' = M x + shift.
struct coordinate_text {
    fraction_matrix matrix = to_fractions(unit_matrix);
    fraction_vector shift;
};

/// Reads three expressions such as `x-y,1/2*x+y,z+1/4` or `x/2, y, z-.25`, in small letters, blanks
/// anywhere. Throws std::invalid_argument, whose message names what can't be read.
coordinate_text parse_coordinates(std::string_view text);

}  // namespace lomar
