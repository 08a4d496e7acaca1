#pragma once

#include "analysis/completion.h"
#include "analysis/identify.h"
#include "group/magnetic_group.h"

namespace lomar {

/// Which magnetic group some operators make.
struct magnetic_identification {
    const magnetic_facts* row = nullptr;
    match_kind match = match_kind::exact;  ///< against the setting of the BNS symbol
    basis_change change;                   ///< from the input's axes to that setting, det P > 0
};

/// Identifies a magnetic space group of any of the four types from its operators. The change is
/// chosen as in identify(): the input's own axes where they are those of the setting, else the
/// smallest sum of absolute entries, then the smallest origin. The answer is verified: throws
/// std::logic_error if the changed operators were not those of the group. Errors as identify().
magnetic_identification identify_magnetic(const completed_group& group);

}  // namespace lomar
