#pragma once

#include <algorithm>
#include <cctype>
#include <string>
#include <string_view>

namespace lomar {

/// Walks through the lines of a text; a line end is a line feed, with or without a carriage return.
class text_lines {
public:
    explicit text_lines(std::string_view text) : rest_(text) {}

    /// Goes to the next line; false when there is none.
    bool next() {
        if (rest_.empty()) return false;
        const std::size_t end = rest_.find('\n');
        line_ = rest_.substr(0, end);
        if (line_.ends_with('\r')) line_.remove_suffix(1);
        rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
        ++number_;
        return true;
    }
    std::string_view line() const { return line_; }
    int number() const { return number_; }

private:
    std::string_view rest_;
    std::string_view line_;
    int number_ = 0;
};

inline bool is_blank_text(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](unsigned char c) { return std::isspace(c) != 0; });
}

inline std::string capitals(std::string_view text) {
    std::string result(text);
    for (char& c : result) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return result;
}

}  // namespace lomar
