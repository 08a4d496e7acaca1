#pragma once

#include <string>
#include <string_view>

namespace lomar {

/// The symbol of a group as print has it, in HTML: letters in italics, a bar for a minus before a
/// digit, screw axes and the letters of primed translations as subscripts. The text within the
/// markup is the symbol to the letter, so that it is copied and read aloud as it is typed. A Hall
/// symbol stays as it is.
std::string symbol_markup(std::string_view symbol);

/// The same of a Schoenflies symbol: `C2h^5` with what follows its first letter as a subscript and
/// the number as a superscript.
std::string schoenflies_markup(std::string_view symbol);

}  // namespace lomar
