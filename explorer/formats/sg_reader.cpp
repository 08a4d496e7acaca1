#include <charconv>

#include "formats/block_text.h"
#include "formats/readers.h"
#include "formats/text_lines.h"

namespace lomar {

namespace {

// Takes a row of an operator off the front, up to a comma or line end, over blank lines before it.
// `after_comma` becomes whether a comma ended it.
std::string_view take_row(std::string_view& text, int& line, bool& after_comma) {
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.front())) != 0) {
        if (text.front() == '\n') ++line;
        text.remove_prefix(1);
    }
    const std::size_t end = text.find_first_of(",\n");
    const std::string_view row = text.substr(0, end);
    after_comma = end != std::string_view::npos && text[end] == ',';
    // A line end is left for the line count.
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + (after_comma ? 1 : 0));
    return row;
}

void read_positions(std::string_view text, int line, operator_block& block) {
    while (!is_blank_text(text)) {
        bool after_comma = false;
        std::string op(take_row(text, line, after_comma));
        const int first_line = line;
        for (int row = 1; row < 3; ++row) {
            op += ',';
            op += take_row(text, line, after_comma);
        }
        // What follows a third comma is time reversal.
        if (after_comma) {
            op += ',';
            op += take_row(text, line, after_comma);
        }
        add_operator(block, parse_operator(op, first_line));
    }
}

void read_record(std::string_view text, operator_block& block) {
    text_lines lines(text);
    while (lines.next()) {
        std::string_view line = lines.line();
        while (!line.empty() && is_blank_text(line.substr(0, 1))) line.remove_prefix(1);
        while (!line.empty() && is_blank_text(line.substr(line.size() - 1))) line.remove_suffix(1);
        const std::size_t end = line.find(' ');
        if (end == std::string_view::npos) continue;
        const std::string_view key = line.substr(0, end), value = line.substr(end + 1);
        if (key == "symbol") block.symbol = value;
        if (key == "number") {
            std::from_chars(value.data(), value.data() + value.size(), block.number);
        }
    }
}

}  // namespace

std::vector<operator_block> read_sg(std::string_view text) {
    const std::string plain = without_comments(text);
    std::vector<operator_block> blocks(1);
    std::string_view found;
    int line = 0;
    if (find_block(plain, "space_group", found, line)) read_record(found, blocks[0]);
    if (!find_block(plain, "xyzs", found, line)) {
        throw unreadable_input("there is no section xyzs { ... }");
    }
    const bool has_end = found.data() + found.size() < plain.data() + plain.size();
    if (!has_end) throw unreadable_input(line, "the section xyzs has no end");
    blocks[0].line = line;
    read_positions(found, line, blocks[0]);
    return blocks;
}

}  // namespace lomar
