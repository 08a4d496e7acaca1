#pragma once

#include <string>
#include <vector>

#include "group/symop.h"

namespace lomar {

// The one place where the library's lists, and the failures that it throws as pointers, become
// ordinary values. Nothing else of the explorer touches them.

/// What the library makes of a name of the catalogue.
struct library_group {
    std::vector<symop> representatives;     ///< without centring; the identity first
    std::vector<fraction_vector> centring;  ///< the null vector first
};

/// Decodes the group of a name that the catalogue has. Throws std::runtime_error with the library's
/// message when it has none such.
library_group operators_of_name(const std::string& name);

}  // namespace lomar
