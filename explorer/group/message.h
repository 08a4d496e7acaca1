#pragma once

#include <string>
#include <string_view>

namespace lomar {

/// The text as one line that a terminal can show: a byte that is no part of UTF-8, or a control
/// character, becomes `\x1b`; what is longer than 2000 bytes is cut.
std::string one_line(std::string_view text);

}  // namespace lomar
