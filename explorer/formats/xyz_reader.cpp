#include <cctype>

#include "formats/readers.h"
#include "formats/text_lines.h"

namespace lomar {

namespace {

bool is_label(std::string_view text) {
    std::size_t at = 1;
    while (at < text.size() && text[at] >= '0' && text[at] <= '9') ++at;
    return at > 1 && at < text.size() && text[at] == ')';
}

// Where the next operator of a line begins, after the first byte.
std::size_t next_operator(std::string_view line) {
    for (std::size_t at = 1; at < line.size(); ++at) {
        if (line[at] == ';' || (line[at] == '(' && is_label(line.substr(at)))) return at;
    }
    return line.size();
}

}  // namespace

std::vector<operator_block> read_xyz(std::string_view text) {
    std::vector<operator_block> blocks(1);
    text_lines lines(text);
    while (lines.next()) {
        std::string_view rest = lines.line().substr(0, lines.line().find('#'));
        while (!is_blank_text(rest)) {
            const std::size_t end = next_operator(rest);
            std::string_view one = rest.substr(0, end);
            rest.remove_prefix(end);
            if (rest.starts_with(';')) rest.remove_prefix(1);
            if (!is_blank_text(one)) add_operator(blocks[0], parse_operator(one, lines.number()));
        }
    }
    return blocks;
}

}  // namespace lomar
