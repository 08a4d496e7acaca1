#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lomar {

/// Columns of a terminal.
inline constexpr std::size_t text_width = 80;

/// A name, padded to some columns, and items with the separator between them, in as many lines as
/// they need; an item is never broken. Nothing if there are no items.
std::string wrapped(std::string_view name, const std::vector<std::string>& items,
                    std::string_view separator = ", ", std::size_t name_width = 16);

/// Rows with aligned columns, two blanks apart, indented by two.
std::string table_text(const std::vector<std::vector<std::string>>& rows);

/// The text in bold print, for a terminal; as it is without colour.
std::string bold(std::string_view text, bool colour);

}  // namespace lomar
