#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>

#include "formats/cif_number.h"
#include "formats/cif_text.h"
#include "formats/cif_transform.h"
#include "formats/readers.h"

// A CIF in other axes, read back: operators, cells and positions are those that the change of axes
// makes, and what has no axes is as it was. The first byte chooses the axes and whether the rest is
// the whole CIF or a part of one.

namespace {

using namespace lomar;

constexpr const char* start =
    "data_x\n_cell_length_a 10.00(2)\n_cell_length_b 5\n_cell_length_c 8.5\n_cell_angle_alpha 90\n"
    "_cell_angle_beta 110.0(1)\n_cell_angle_gamma 90\nloop_\n_symmetry_equiv_pos_as_xyz\n"
    "'x, y, z' '-x, y+1/2, -z+1/2' '-x, -y, -z' 'x, -y+1/2, z+1/2'\nloop_\n_atom_site_label\n"
    "_atom_site_fract_x\n_atom_site_fract_y\n_atom_site_fract_z\nO1 0.1000(3) 0.25 ";

constexpr std::pair<const char*, const char*> choices[] = {
    {"-a-c,b,a", "0,0,0"}, {"b,c,a", "1/8,0,1/5"}, {"a+b,b,c", "0,0,1/3"}, {"a,b,2c", "0,0,0"}};

void require(bool holds) {
    if (!holds) __builtin_trap();
}

bool is_rewritten(const std::string& tag) {
    for (const char* start_of_tag : {"_cell_", "_space_group", "_symmetry", "_atom_site"}) {
        if (tag.starts_with(start_of_tag)) return true;
    }
    return tag.ends_with("_index_h") || tag.ends_with("_index_k") || tag.ends_with("_index_l");
}

// Numbers of one row under three or six tags; nothing where one is missing or unknown.
template <std::size_t N>
std::optional<std::array<cif_number, N>> numbers_at(std::string_view text, const cif_table& table,
                                                    const std::array<std::string, N>& tags,
                                                    std::size_t row) {
    std::array<cif_number, N> result;
    for (std::size_t i = 0; i < N; ++i) {
        const int column = table.column(tags[i]);
        if (column < 0) return {};
        const auto number =
            read_cif_number(cif_plain(text, table.at(row, static_cast<std::size_t>(column))));
        if (!number) return {};
        result[i] = *number;
    }
    return result;
}

// Within the last decimal that is written.
void check_number(const cif_number& written, double wanted) {
    const double last = std::pow(10.0, -written.decimals);
    require(std::abs(written.value.to_double() - wanted) <= 1.6 * last + 1e-9 * std::abs(wanted));
}

void check_positions(std::string_view before, const cif_table& old_table, std::string_view after,
                     const cif_table& new_table, const basis_change& change) {
    const std::array<std::string, 3> tags = {"_atom_site_fract_x", "_atom_site_fract_y",
                                             "_atom_site_fract_z"};
    for (std::size_t row = 0; row < old_table.n_rows(); ++row) {
        const auto old_point = numbers_at(before, old_table, tags, row);
        if (!old_point) continue;
        const auto new_point = numbers_at(after, new_table, tags, row);
        require(new_point.has_value());
        const fraction_vector wanted = transformed(
            {(*old_point)[0].value, (*old_point)[1].value, (*old_point)[2].value}, change);
        for (std::size_t i = 0; i < 3; ++i) check_number((*new_point)[i], wanted[i].to_double());
    }
}

std::optional<std::array<cif_number, 6>> cell_of(std::string_view text,
                                                 const cif_section& section) {
    std::array<cif_number, 6> cell;
    const char* tags[] = {"_cell_length_a",    "_cell_length_b",   "_cell_length_c",
                          "_cell_angle_alpha", "_cell_angle_beta", "_cell_angle_gamma"};
    for (std::size_t i = 0; i < 6; ++i) {
        const cif_token* token = nullptr;
        for (const cif_table& table : section.tables) {
            const int column = table.column(tags[i]);
            if (column < 0 || table.n_rows() != 1 || token != nullptr) continue;
            token = &table.at(0, static_cast<std::size_t>(column));
        }
        const auto number = token ? read_cif_number(cif_plain(text, *token)) : std::nullopt;
        if (!number) return {};
        cell[i] = *number;
    }
    return cell;
}

void check_cell_of(std::string_view before, const cif_section& old_section, std::string_view after,
                   const cif_section& new_section, const basis_change& change) {
    const auto old_cell = cell_of(before, old_section);
    if (!old_cell) return;
    cell_lengths lengths{};
    for (std::size_t i = 0; i < 6; ++i) lengths[i] = (*old_cell)[i].value.to_double();
    const cell_lengths wanted = transformed_cell(lengths, change.matrix);
    const auto written = cell_of(after, new_section);
    require(written.has_value());
    for (std::size_t i = 0; i < 6; ++i) check_number((*written)[i], wanted[i]);
}

void check_section(std::string_view before, const cif_section& old_section, std::string_view after,
                   const cif_section& new_section, const basis_change& change, bool moved) {
    require(old_section.name == new_section.name);
    require(old_section.tables.size() == new_section.tables.size());
    if (moved) check_cell_of(before, old_section, after, new_section, change);
    for (std::size_t i = 0; i < old_section.tables.size(); ++i) {
        const cif_table& was = old_section.tables[i];
        const cif_table& is = new_section.tables[i];
        require(was.names == is.names);
        if (moved) check_positions(before, was, after, is, change);
        for (std::size_t column = 0; column < was.tags.size(); ++column) {
            if (moved && is_rewritten(was.tags[column])) continue;
            if (was.n_rows() != is.n_rows()) continue;  // beside the operators
            for (std::size_t row = 0; row < was.n_rows(); ++row) {
                const cif_token &a = was.at(row, column), &b = is.at(row, column);
                const bool listed = was.column("_symmetry_equiv_pos_as_xyz") >= 0 ||
                                    was.column("_symmetry_equiv_as_xyz") >= 0 ||
                                    was.column("_space_group_symop_operation_xyz") >= 0;
                require(listed || before.substr(a.begin, a.end - a.begin) ==
                                      after.substr(b.begin, b.end - b.begin));
            }
        }
    }
}

std::set<symop> operators_in(const operator_block& block) {
    const std::vector<symop> list = operators_of_cell(complete(block.operators));
    return {list.begin(), list.end()};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const auto& [axes, origin] = choices[data[0] / 2 % 4];
    const basis_change change{parse_basis(axes), parse_point(origin)};
    const std::string given(reinterpret_cast<const char*>(data + 1), size - 1);
    const std::string text = data[0] % 2 == 0 ? given : start + given;
    std::string result;
    try {
        for (const operator_block& block : read_operators(text, "cif").blocks) {
            if (block.operators.size() > 200) return 0;
        }
        result = transformed_cif(text, [&](const space_group&) { return change; });
    } catch (const std::logic_error& failure) {
        // The axes don't fit the group; an answer that failed its own test is a fault.
        require(std::string_view(failure.what()).find("internal") == std::string_view::npos);
        return 0;
    } catch (const std::runtime_error& failure) {
        require(std::string_view(failure.what()).find("found again") == std::string_view::npos);
        return 0;
    }
    const auto old_blocks = read_operators(text, "cif").blocks;
    const auto new_blocks = read_operators(result, "cif").blocks;
    require(old_blocks.size() == new_blocks.size());
    std::set<std::string> moved;
    for (std::size_t i = 0; i < old_blocks.size(); ++i) {
        const std::vector<symop> list = operators_of_cell(complete(old_blocks[i].operators));
        const space_group wanted = in_other_axes(group_of_operators(list), change);
        require(operators_in(new_blocks[i]) ==
                std::set<symop>(wanted.operators.begin(), wanted.operators.end()));
        moved.insert(old_blocks[i].name);
    }
    const auto before = cif_sections(text), after = cif_sections(result);
    require(before.size() == after.size());
    for (std::size_t i = 0; i < before.size(); ++i) {
        const bool is_data = before[i].name[4] == '_';
        const std::string name = is_data ? before[i].name.substr(5) : "";
        const bool is_moved = moved.contains(is_data && name.empty() ? "#" : name);
        check_section(text, before[i], result, after[i], change, is_moved);
    }
    return 0;
}
