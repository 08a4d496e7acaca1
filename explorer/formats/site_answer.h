#pragma once

#include <string>

#include "analysis/site.h"
#include "group/names.h"

namespace lomar {

// The site of a point in the forms of `lomar site`.

std::string site_text(const named_group& named, const site& found, bool colour);
/// The object with the names of the group and the keys point, shift, letter, multiplicity,
/// site_symmetry, operators and orbit.
std::string site_json(const named_group& named, const site& found);
/// The orbit as a table with a head line: letter,multiplicity,site_symmetry,x,y,z.
std::string site_csv(const site& found);

}  // namespace lomar
