#include <algorithm>
#include <array>
#include <cctype>

#include "formats/operator_files.h"

namespace lomar {

namespace {

bool is_plain(std::string_view text) {
    constexpr std::string_view special = "_#$'\"[];";
    constexpr std::array<std::string_view, 5> reserved = {"data_", "save_", "loop_", "stop_",
                                                          "global_"};
    if (text.empty() || special.find(text[0]) != std::string_view::npos) return false;
    if (text == "?" || text == ".") return false;
    std::string lower(text);
    for (char& c : lower) {
        if (c <= ' ' || c > '~') return false;
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return std::none_of(reserved.begin(), reserved.end(),
                        [&](std::string_view word) { return lower.starts_with(word); });
}

// A quote ends a string only where white space follows it.
bool can_be_quoted(std::string_view text, char quote) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' || text[i] == '\r') return false;
        if (text[i] == quote && (i + 1 == text.size() || text[i + 1] == ' ' || text[i + 1] == '\t'))
            return false;
    }
    return true;
}

void add_item(std::string& text, std::string_view name, const std::string& value) {
    std::string line(name);
    line.resize(34, ' ');
    text.append(line).append(value).append("\n");
}

// A name of a block has no blanks.
std::string block_name(const space_group& group) {
    std::string name = "data_" + group.name;
    for (char& c : name) {
        if (c <= ' ' || c > '~') c = '_';
    }
    return name + "\n";
}

}  // namespace

std::string cif_value(std::string_view text) {
    if (is_plain(text)) return std::string(text);
    for (const char quote : {'\'', '"'}) {
        if (can_be_quoted(text, quote)) return quote + std::string(text) + quote;
    }
    return "\n;" + std::string(text) + "\n;";
}

std::string cif_name(std::string_view text) {
    return can_be_quoted(text, '\'') ? "'" + std::string(text) + "'" : cif_value(text);
}

std::string cif_block(const space_group& group) {
    std::string text = block_name(group);
    add_item(text, "_space_group_IT_number", std::to_string(group.row->number));
    add_item(text, "_space_group_name_H-M_alt", group.tabulated ? cif_name(group.name) : "?");
    add_item(text, "_space_group_name_Hall", cif_name(group.hall));
    add_item(text, "_space_group_crystal_system", std::string(group.row->crystal_system));
    text += "loop_\n_space_group_symop_id\n_space_group_symop_operation_xyz\n";
    for (std::size_t i = 0; i < group.operators.size(); ++i) {
        std::string number = std::to_string(i + 1);
        number.insert(0, number.size() < 3 ? 3 - number.size() : 0, ' ');
        text.append(number).append(" ").append(xyz_text(group.operators[i])).append("\n");
    }
    return text;
}

}  // namespace lomar
