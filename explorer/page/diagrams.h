#pragma once

#include <span>
#include <string>

#include "group/symop.h"

namespace lomar {

/// The section of a page with the symmetry elements in projection along a, b and c, that of the
/// printed tables first, and the general positions. Operators of a magnetic group have their time
/// reversal in the attributes, as in operator_table.
std::string diagram_section(std::span<const symop> operators, const std::string& name,
                            bool magnetic);

}  // namespace lomar
