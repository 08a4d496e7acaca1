#pragma once

#include <string>
#include <string_view>

namespace lomar {

/// A whole HTML page around some content, with all its style and script in it. `index` is where
/// the list of all pages is; empty if there is none.
std::string html_document(std::string_view title, std::string_view index, const std::string& body);

}  // namespace lomar
