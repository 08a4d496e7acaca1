#include "formats/block_text.h"

#include <algorithm>
#include <cctype>

#include "formats/operator_text.h"

namespace lomar {

namespace {

bool is_blank(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

}  // namespace

std::string without_comments(std::string_view text) {
    std::string result(text);
    int depth = 0;
    int line = 1, opened = 0;
    bool to_line_end = false;
    for (std::size_t at = 0; at < result.size(); ++at) {
        const std::string_view two = text.substr(at, 2);
        if (result[at] == '\n') {
            to_line_end = false;
            ++line;
            continue;
        }
        if (!to_line_end && two == "/*") {
            if (depth++ == 0) opened = line;
            result[at++] = ' ';
            result[at] = ' ';
            continue;
        }
        if (depth > 0 && two == "*/") {
            --depth;
            result[at++] = ' ';
            result[at] = ' ';
            continue;
        }
        if (depth == 0 && result[at] == '\'') to_line_end = true;
        if (depth > 0 || to_line_end) result[at] = ' ';
    }
    if (depth > 0) throw unreadable_input(opened, "a comment has no end");
    return result;
}

bool find_block(std::string_view text, std::string_view word, std::string_view& block, int& line) {
    for (std::size_t at = text.find(word); at != std::string_view::npos;
         at = text.find(word, at + 1)) {
        if (at > 0 && !is_blank(text[at - 1]) && text[at - 1] != '}') continue;
        std::size_t brace = at + word.size();
        while (brace < text.size() && is_blank(text[brace])) ++brace;
        if (brace == text.size() || text[brace] != '{') continue;
        const std::size_t end = text.find('}', brace);
        block = text.substr(brace + 1, end == std::string_view::npos ? end : end - brace - 1);
        line = 1 + count_lines(text.substr(0, brace));
        return true;
    }
    return false;
}

int count_lines(std::string_view text) {
    return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace lomar
