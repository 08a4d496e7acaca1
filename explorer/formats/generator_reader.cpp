#include "formats/block_text.h"
#include "formats/readers.h"
#include "formats/text_lines.h"

namespace lomar {

namespace {

bool spans_lines(std::string_view row) {
    const std::size_t first = row.find_first_not_of(" \t\r\n\f\v");
    if (first == std::string_view::npos) return false;
    const std::size_t last = row.find_last_not_of(" \t\r\n\f\v");
    return row.substr(first, last - first).find('\n') != std::string_view::npos;
}

}  // namespace

std::vector<operator_block> read_generators(std::string_view text) {
    const std::string plain = without_comments(text);
    std::string_view rest;
    int line = 0;
    if (!find_block(plain, "symmetry", rest, line)) {
        throw unreadable_input("there is no block symmetry { ... }");
    }
    std::vector<operator_block> blocks(1);
    blocks[0].line = line;
    while (!is_blank_text(rest)) {
        std::string op;
        int rows = 0;
        for (; rows < 3 && !is_blank_text(rest); ++rows) {
            const std::size_t end = std::min(rest.find_first_of(",;"), rest.size());
            const std::string_view row = rest.substr(0, end);
            if (rows == 2 && spans_lines(row)) {
                const int at = line + count_lines(row.substr(0, row.find_first_not_of(" \t\r\n")));
                throw unreadable_input(at, "a comma or semicolon is missing after the generator");
            }
            line += count_lines(row);
            op.append(rows > 0 ? "," : "").append(row);
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
        add_operator(blocks[0], parse_operator(op, line));
    }
    return blocks;
}

}  // namespace lomar
