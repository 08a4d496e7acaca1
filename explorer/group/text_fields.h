#pragma once

#include <charconv>
#include <string_view>

namespace lomar {

/// Takes the text up to a separator, and the separator, off the front of `text`.
inline std::string_view take_field(std::string_view& text, char separator) {
    const std::size_t end = text.find(separator);
    const std::string_view field = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return field;
}

/// The whole number that a text begins with; 0 if it begins with none.
inline int whole_number(std::string_view text) {
    int value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

}  // namespace lomar
