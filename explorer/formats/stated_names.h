#pragma once

#include <string>
#include <vector>

#include "analysis/completion.h"
#include "analysis/identify.h"
#include "analysis/identify_magnetic.h"
#include "formats/readers.h"

namespace lomar {

/// Where the names and numbers in some input say other than its operators: one line each. A symbol
/// that leaves axes or origin open agrees with all that it may mean; a Hall symbol must have the
/// very operators.
std::vector<std::string> contradictions_of(const operator_block& block,
                                           const completed_group& group,
                                           const identification& found);
std::vector<std::string> contradictions_of(const operator_block& block,
                                           const magnetic_identification& found);

}  // namespace lomar
