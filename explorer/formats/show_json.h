#pragma once

#include "formats/group_report.h"
#include "formats/json.h"

namespace lomar {

/// Adds what a group is called: from "name" to "schoenflies".
void add_names(json& object, const space_group& group);

/// An operator with what it does: "xyz", "kind" and so on to "seitz".
json operator_json(const symop& op, const symmetry_element& element);

/// The object of `lomar show`. Its keys are always there; what does not apply is null.
json show_json(const group_report& report);

}  // namespace lomar
