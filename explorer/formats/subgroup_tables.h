#pragma once

#include <string>
#include <vector>

#include "analysis/subgroups.h"
#include "formats/json.h"

namespace lomar {

// The answers of `lomar subgroups`: the maximal translationengleiche subgroups of a group, and the
// chains down to a named one.

std::string subgroups_text(const space_group& group, const std::vector<subgroup>& subgroups,
                           bool colour);
/// The names of the group, and "subgroups": name, number, index, class, match, transformation from
/// the group's axes, and operators (those without centring translations).
json subgroups_json(const space_group& group, const std::vector<subgroup>& subgroups);
std::string subgroups_csv(const std::vector<subgroup>& subgroups);

std::string chains_text(const space_group& group, const std::string& target,
                        const std::vector<subgroup_chain>& chains, bool colour);
/// The names of the group, "to", and "chains": each with "class" and "steps", which are as in
/// subgroups_json.
json chains_json(const space_group& group, const std::string& target,
                 const std::vector<subgroup_chain>& chains);
std::string chains_csv(const std::vector<subgroup_chain>& chains);

}  // namespace lomar
