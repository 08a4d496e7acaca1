#include <algorithm>
#include <array>
#include <charconv>

#include "formats/cif_reader.h"
#include "formats/readers.h"
#include "formats/text_lines.h"

namespace lomar {

namespace {

// Names count with their dots as underscores.
std::string plain_tag(std::string tag) {
    std::replace(tag.begin(), tag.end(), '.', '_');
    return tag;
}

template <std::size_t N>
bool is_one_of(const std::string& tag, const std::array<const char*, N>& names) {
    return std::find(names.begin(), names.end(), tag) != names.end();
}

constexpr std::array operator_tags = {"_space_group_symop_operation_xyz",
                                      "_symmetry_equiv_pos_as_xyz", "_symmetry_equiv_as_xyz"};
constexpr std::array magnetic_tags = {"_space_group_symop_magn_operation_xyz",
                                      "_space_group_symop_magn_operation_as_xyz"};
constexpr std::array centring_tags = {"_space_group_symop_magn_centering_xyz"};
constexpr std::array symbol_tags = {"_space_group_name_h-m_alt", "_symmetry_space_group_name_h-m",
                                    "_space_group_name_h-m_full", "_space_group_name_h-m"};
constexpr std::array hall_tags = {"_space_group_name_hall", "_symmetry_space_group_name_hall"};
constexpr std::array number_tags = {"_space_group_it_number", "_symmetry_int_tables_number"};
constexpr std::array bns_symbol_tags = {"_space_group_magn_name_bns"};
constexpr std::array bns_number_tags = {"_space_group_magn_number_bns"};

std::vector<given_operator> read_column(const cif_item& item, const std::string& block_name) {
    std::vector<given_operator> result;
    int place = 0;
    for (const std::string& value : item.values) {
        ++place;
        try {
            result.push_back(parse_operator(value, 0));
        } catch (const unreadable_input& failure) {
            throw unreadable_input("data_" + block_name + ", " + item.tag + " of line " +
                                   std::to_string(item.line) + ", value " + std::to_string(place) +
                                   ": " + failure.what());
        }
        if (result.size() > 100'000) {
            throw unreadable_input(item.line, "more than 100000 operators");
        }
    }
    return result;
}

void take_fact(const cif_item& item, const std::string& tag, operator_block& block) {
    const std::string& value = item.values.empty() ? std::string() : item.values[0];
    if (is_blank_text(value)) return;
    if (is_one_of(tag, symbol_tags) && block.symbol.empty()) block.symbol = value;
    if (is_one_of(tag, hall_tags) && block.hall.empty()) block.hall = value;
    if (is_one_of(tag, bns_symbol_tags)) block.bns_symbol = value;
    if (is_one_of(tag, bns_number_tags)) block.bns_number = value;
    if (is_one_of(tag, number_tags)) {
        std::from_chars(value.data(), value.data() + value.size(), block.number);
    }
}

operator_block block_of(const cif_block& found) {
    operator_block block;
    block.name = found.name;
    std::vector<given_operator> plain, magnetic, centring;
    for (const cif_item& item : found.items) {
        const std::string tag = plain_tag(item.tag);
        take_fact(item, tag, block);
        std::vector<given_operator>* list = is_one_of(tag, operator_tags)   ? &plain
                                            : is_one_of(tag, magnetic_tags) ? &magnetic
                                            : is_one_of(tag, centring_tags) ? &centring
                                                                            : nullptr;
        if (list == nullptr || !list->empty()) continue;
        *list = read_column(item, found.name);
        if (block.line == 0 || list == &magnetic) block.line = item.line;
    }
    block.magnetic = !magnetic.empty();
    if (!block.magnetic) {
        block.operators = std::move(plain);
        return block;
    }
    if (centring.empty()) centring.emplace_back();
    for (const given_operator& shift : centring) {
        for (const given_operator& op : magnetic) {
            add_operator(block, {shift.rot * op.rot, shift.rot * op.trans + shift.trans,
                                 shift.time * op.time, 0});
        }
    }
    return block;
}

}  // namespace

std::vector<operator_block> read_cif_operators(std::string_view text) {
    std::vector<cif_block> found;
    try {
        found = read_cif(std::string(text), {"_space_group", "_symmetry"});
    } catch (const std::runtime_error& failure) {
        throw unreadable_input(failure.what());
    }
    std::vector<operator_block> blocks;
    std::string named;
    for (const cif_block& one : found) {
        operator_block block = block_of(one);
        if (block.operators.empty() && named.empty()) {
            if (!block.symbol.empty())
                named = "; data_" + block.name + " names " + shown(block.symbol);
        }
        if (!block.operators.empty()) blocks.push_back(std::move(block));
    }
    if (blocks.empty()) throw unreadable_input("the CIF has no operators" + named);
    return blocks;
}

}  // namespace lomar
