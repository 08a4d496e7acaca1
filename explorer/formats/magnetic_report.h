#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "formats/json.h"
#include "group/magnetic_group.h"

namespace lomar {

// Lists of magnetic groups: a table for a terminal, JSON, CSV.

std::string magnetic_table(const std::vector<const magnetic_facts*>& rows);
std::string magnetic_list_json(const std::vector<const magnetic_facts*>& rows);
std::string magnetic_csv(const std::vector<const magnetic_facts*>& rows);

// One magnetic group. `notation` is what its name was found as, such as `BNS symbol`.

std::string magnetic_text(const magnetic_group& group, std::string_view notation);
std::string magnetic_json(const magnetic_group& group, std::string_view notation);
/// The same before it is written; `found_as` is null for an empty notation.
json magnetic_object(const magnetic_group& group, std::string_view notation);

/// A CIF block with the names of the magnetic CIF dictionary, which have dots. Pure translations,
/// primed ones too, are in the loop of the centring; the products of both loops are the group.
std::string magnetic_cif(const magnetic_group& group);

/// One operator a line, all of the cell: `-x,y+1/2,-z+1/2,-1`.
std::string magnetic_xyz(const magnetic_group& group);

}  // namespace lomar
