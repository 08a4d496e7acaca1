#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lomar {

/// The longest symbol that is looked at, in bytes.
inline constexpr std::size_t longest_symbol = 200;

/// A text in which ASCII takes the place of what Unicode and TeX write otherwise: a minus before a
/// digit for `\bar`, `_2` for a subscript, `^5` for a superscript, `'` for a typographic prime, a
/// `~` for a combining overline. Other bytes stay as they are.
std::string in_ascii(std::string_view typed);

/// What a person typed, in one spelling: small letters, single blanks and none at the ends, no
/// quotation marks around it, ASCII for what Unicode and TeX write otherwise: a minus before a
/// digit for a bar over it (a combining overline, `\bar3`, `3bar`), `_2` for a subscript, `^5` for
/// a superscript, `'` for a prime. Other bytes stay as they are.
std::string plain_symbol(std::string_view typed);

/// A plain symbol without blanks, underscores, brackets and TeX's dollar signs.
std::string squeezed(std::string_view plain);

std::string lower_case(std::string_view text);

/// The parts of a symbol between its blanks, in small letters.
std::vector<std::string> words_of(std::string_view symbol);

/// A text for a message of one line, in quotation marks: control characters and what is no UTF-8 as
/// `\x1b`, cut after 60 bytes.
std::string in_quotes(std::string_view text);

}  // namespace lomar
