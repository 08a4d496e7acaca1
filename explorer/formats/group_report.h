#pragma once

#include <string>
#include <vector>

#include "analysis/conditions.h"
#include "analysis/symmetry_element.h"
#include "analysis/wyckoff.h"
#include "group/names.h"

namespace lomar {

/// All that is told of a group, worked out once for every form in which it is shown.
struct group_report {
    named_group group;
    std::vector<symmetry_element> elements;  ///< in the order of the operators
    std::vector<reflection_condition> conditions;
    std::vector<wyckoff_position> positions;  ///< by their letters, the general one last
    std::vector<std::string> other_settings;  ///< names
};

group_report report_of(named_group group);

/// Qualifier and choice, as `b1`, `cab`, `2 cab`, `H`; empty where there is none.
std::string setting_text(const space_group& group);

/// The directions that no operator changes, in smallest integers: none, one, two or three.
std::vector<int_vector> polar_directions(const space_group& group);

}  // namespace lomar
