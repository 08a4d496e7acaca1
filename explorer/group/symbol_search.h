#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "group/settings.h"

namespace lomar {

/// A symbol in the parts that count: `P 21/c:b1` is `p21/c` and `b1`.
struct symbol_parts {
    std::string plain;  ///< as plain_symbol gives it, without the mark
    std::string base;   ///< squeezed, without the mark
    std::string mark;   ///< what a colon, or an h at the end, says of choice, axes and cell
    bool has_colon = false;
};

symbol_parts parts_of_symbol(std::string_view typed);

/// Whether a base is nothing but digits.
bool is_group_number(std::string_view base);

/// Settings whose symbols begin with the axis that the blanks, brackets or underscores of a symbol
/// tell of, although the letters run together make another name: `P 31 2` could lack a part of
/// P 31 1 2 or P 31 2 1, and is P 3 1 2 without its blank.
std::vector<const setting*> settings_with_axis(const symbol_parts& symbol);

/// The groups of a class, each in the setting of its number: for a Schoenflies symbol without the
/// number that tells them apart, or with one that none has.
std::vector<const setting*> groups_of_class(const symbol_parts& symbol);

/// The setting that a Hermann-Mauguin symbol, a number or a Schoenflies symbol means; null if it
/// means none.
const setting* find_named_setting(const symbol_parts& symbol);

}  // namespace lomar
