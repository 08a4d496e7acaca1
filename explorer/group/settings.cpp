#include "group/settings.h"

#include <array>
#include <stdexcept>
#include <vector>

#include "group/embedded_data.h"
#include "group/text_fields.h"

namespace lomar {

namespace {

constexpr std::size_t n_columns = 17;

setting row_of(std::string_view line) {
    std::array<std::string_view, n_columns> field;
    for (std::string_view& text : field) text = take_field(line, '\t');
    setting row;
    row.number = whole_number(field[0]);
    row.symbol = field[1];
    row.choice = field[2];
    row.qualifier = field[3];
    row.hall = field[4];
    row.full_symbol = field[5];
    row.schoenflies = field[6];
    row.crystal_system = field[7];
    row.point_group = field[8];
    row.laue_class = field[9];
    row.centrosymmetric = field[10] == "yes";
    row.sohncke = field[11] == "yes";
    row.symmorphic = field[12] == "yes";
    row.enantiomorph = whole_number(field[13]);
    row.polar_directions = field[14];
    row.standard_basis = field[15];
    row.standard_origin = field[16];
    return row;
}

std::vector<setting> read_settings() {
    std::vector<setting> rows;
    rows.reserve(600);
    std::string_view text = group_facts_data;
    take_field(text, '\n');
    while (!text.empty()) {
        rows.push_back(row_of(take_field(text, '\n')));
        rows.back().index = static_cast<int>(rows.size()) - 1;
    }
    return rows;
}

bool is_standard(const setting& row) {
    return row.standard_basis == "a,b,c" && row.standard_origin == "0,0,0";
}

}  // namespace

std::string setting::name() const {
    std::string result(symbol);
    if (!choice.empty()) result.append(":").append(choice);
    return result;
}

std::string setting::variant() const {
    std::string result(choice);
    if (!choice.empty() && !qualifier.empty()) result += ' ';
    return result.append(qualifier);
}

basis_change setting::to_standard() const {
    return {parse_basis(standard_basis), parse_point(standard_origin)};
}

std::span<const setting> settings() {
    static const std::vector<setting> rows = read_settings();
    return rows;
}

const setting& standard_setting(int number) {
    for (const setting& row : settings()) {
        if (row.number == number && is_standard(row)) return row;
    }
    throw std::out_of_range("no space group has the number " + std::to_string(number));
}

const setting* find_setting(std::string_view name) {
    for (const setting& row : settings()) {
        if (name.starts_with(row.symbol) && row.name() == name) return &row;
    }
    return nullptr;
}

}  // namespace lomar
