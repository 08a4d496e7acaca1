#include <array>
#include <utility>

#include "formats/block_text.h"
#include "formats/readers.h"
#include "formats/text_lines.h"

namespace lomar {

namespace {

constexpr std::size_t most_operators = 100'000;

using reader = std::vector<operator_block> (*)(std::string_view);

constexpr std::array<std::pair<const char*, reader>, 6> readers = {{{"xyz", read_xyz},
                                                                    {"cif", read_cif_operators},
                                                                    {"shelx", read_shelx},
                                                                    {"sg", read_sg},
                                                                    {"generators", read_generators},
                                                                    {"json", read_json}}};

bool has_block(std::string_view text, std::string_view word) {
    std::string_view block;
    int line = 0;
    return find_block(text, word, block, line);
}

bool is_shelx_card(const std::string& line) {
    for (const char* word : {"TITL", "REM", "CELL", "ZERR", "LATT", "SYMM", "SFAC"}) {
        if (!line.starts_with(word)) continue;
        const std::size_t end = std::string_view(word).size();
        if (line.size() == end || line[end] == ' ' || line[end] == '\t') return true;
    }
    return false;
}

}  // namespace

std::vector<std::string> input_kinds() {
    std::vector<std::string> result;
    for (const auto& [name, read] : readers) result.emplace_back(name);
    return result;
}

std::string kind_of(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first != std::string_view::npos && (text[first] == '{' || text[first] == '[')) {
        return "json";
    }
    text_lines lines(text);
    while (lines.next()) {
        std::string_view line = lines.line();
        while (!line.empty() && (line[0] == ' ' || line[0] == '\t')) line.remove_prefix(1);
        if (line.empty() || line[0] == '#') continue;
        const std::string word = capitals(line.substr(0, 12));
        if (word.starts_with("DATA_") || word.starts_with("LOOP_") || word[0] == '_') return "cif";
        if (is_shelx_card(word)) return "shelx";
        // The other kinds have braces; a list of operators has none.
        break;
    }
    if (has_block(text, "xyzs") || has_block(text, "space_group")) return "sg";
    if (has_block(text, "symmetry")) return "generators";
    return "xyz";
}

operator_input read_operators(std::string_view text, std::string_view kind) {
    if (text.starts_with("\xef\xbb\xbf")) text.remove_prefix(3);
    operator_input input;
    input.from = kind.empty() ? kind_of(text) : std::string(kind);
    for (const auto& [name, read] : readers) {
        if (input.from != name) continue;
        input.blocks = read(text);
        for (operator_block& block : input.blocks) {
            if (block.operators.empty()) throw unreadable_input("there are no operators");
            for (const given_operator& op : block.operators) {
                if (op.time_given) block.magnetic = true;
            }
        }
        if (input.blocks.empty()) throw unreadable_input("there are no operators");
        return input;
    }
    throw unreadable_input("'" + std::string(kind) + "' is no kind of input");
}

void add_operator(operator_block& block, const given_operator& op) {
    if (block.operators.size() >= most_operators) {
        throw unreadable_input(op.line, "more than 100000 operators");
    }
    block.operators.push_back(op);
}

}  // namespace lomar
