#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "group/magnetic_group.h"
#include "group/settings.h"

namespace lomar {

/// The pages of all settings and all magnetic groups, and the list of them.

/// How many files they are.
std::size_t atlas_size();

/// Makes one file after the other, the list last, and hands each over with its path in the atlas:
/// `settings/014_P_1_21-c_1.html`, `magnetic/14.79.html`, `index.html`.
void make_atlas(const std::function<void(const std::string& path, std::string_view text)>& sink);

/// Names of files of letters, digits and `-_.`, no two of which differ by case alone.
std::string file_name(const setting& row);
std::string file_name(const magnetic_facts& row);

/// The list, with a search by name, number, crystal system and point group.
std::string atlas_index();

}  // namespace lomar
