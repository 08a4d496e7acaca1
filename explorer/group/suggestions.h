#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "group/symbol_search.h"

namespace lomar {

/// At most this many names are suggested.
inline constexpr std::size_t most_suggestions = 10;

/// How far a typed text is from a name, in thousandths of a slip: what it takes to turn one into
/// the other by characters dropped, added, replaced or exchanged with their neighbour. A minus or
/// an apostrophe that is missing, and a letter in the other case, count less than a whole slip.
/// Stops at `limit`, which it gives for all that is as far or farther.
int slips_between(std::string_view typed, std::string_view name, int limit);

/// Names of settings that a symbol may have meant, the nearest first. Origin choices and axes of
/// rhombohedral groups are one name, which has the choice if the symbol had one.
std::vector<std::string> near_names(const symbol_parts& typed);

/// Names that a symbol is with a lattice letter before it: of `-42m` P -4 2 m and others. Empty for
/// one that begins with such a letter.
std::vector<std::string> names_with_lattice(const symbol_parts& typed);

/// The texts of the least distances: each once, at most ten, none much farther than the first. Of
/// equal distances the first of the list is first.
std::vector<std::string> nearest(std::vector<std::pair<int, std::string>> found);

/// `; near: P -4 3 n, P 4 3 2` for a message; empty if there are none.
std::string near_text(const std::vector<std::string>& names);

}  // namespace lomar
