#pragma once

#include <string>
#include <string_view>

namespace lomar {

/// The text with the comments of the data files made blank, line ends kept: `'` and the rest of the
/// line, and what is between `/*` and `*/`, within each other too. Throws unreadable_input for a
/// comment without its end.
std::string without_comments(std::string_view text);

/// What is in the braces after a word; `line` becomes the line of its first byte. False when
/// the word, followed by a brace, is nowhere. Without an end the block runs to that of the text.
bool find_block(std::string_view text, std::string_view word, std::string_view& block, int& line);

/// The number of line feeds.
int count_lines(std::string_view text);

}  // namespace lomar
