#pragma once

#include <string_view>

namespace lomar {

// Files of this folder, compiled into the program.
extern const std::string_view page_style;    ///< page.css
extern const std::string_view page_script;   ///< page.js
extern const std::string_view index_script;  ///< index.js

}  // namespace lomar
