#include "formats/cif_block_rewriter.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "formats/operator_files.h"

namespace lomar {

namespace {

constexpr std::array<std::string_view, 6> cell_tags = {"_cell_length_a",   "_cell_length_b",
                                                       "_cell_length_c",   "_cell_angle_alpha",
                                                       "_cell_angle_beta", "_cell_angle_gamma"};
constexpr std::array<std::string_view, 3> operator_tags = {
    "_space_group_symop_operation_xyz", "_symmetry_equiv_pos_as_xyz", "_symmetry_equiv_as_xyz"};

template <std::size_t N>
bool is_one_of(std::string_view tag, const std::array<std::string_view, N>& tags) {
    return std::find(tags.begin(), tags.end(), tag) != tags.end();
}

// The old axis that a new one is, in either direction.
std::optional<std::size_t> old_axis(const fraction_matrix& matrix, std::size_t j) {
    std::optional<std::size_t> found;
    for (std::size_t i = 0; i < 3; ++i) {
        if (matrix[i][j].is_zero()) continue;
        const bool is_unit = matrix[i][j] == fraction(1) || matrix[i][j] == fraction(-1);
        if (found || !is_unit) return std::nullopt;
        found = i;
    }
    return found;
}

// Whether an item hangs on axes or origin and is not rewritten.
bool stays_in_old_axes(std::string_view tag) {
    constexpr std::string_view starts[] = {"_atom_site_cartn_",
                                           "_atom_sites_cartn_",
                                           "_atom_sites_fract_",
                                           "_cell_reciprocal_",
                                           "_diffrn_orient_matrix_ub_",
                                           "_diffrn_orient_refln_",
                                           "_diffrn_reflns_limit_",
                                           "_diffrn_reflns_transf_matrix_",
                                           "_iucr_refine_instructions",
                                           "_iucr_refine_reflections",
                                           "_refln_a_",
                                           "_refln_b_",
                                           "_refln_phase_",
                                           "_reflns_limit_",
                                           "_shelx_hkl_file",
                                           "_shelx_res_file",
                                           "_space_group_wyckoff_",
                                           "_twin_individual_twin_matrix_"};
    const bool is_code = tag.starts_with("_geom_") || tag.starts_with("_restr_");
    if (is_code && tag.find("_site_symmetry") != std::string_view::npos) return true;
    return std::any_of(std::begin(starts), std::end(starts),
                       [&](std::string_view word) { return tag.starts_with(word); });
}

}  // namespace

const cif_token* cif_block_rewriter::single(std::string_view tag) const {
    for (const cif_table& table : section_.tables) {
        const int column = table.column(tag);
        if (column >= 0 && table.n_rows() == 1)
            return &table.at(0, static_cast<std::size_t>(column));
    }
    return nullptr;
}

std::optional<cif_number> cif_block_rewriter::number_at(const cif_token& token) const {
    const std::string_view value = cif_plain(text_, token);
    if (value == "?" || value == ".") return std::nullopt;
    const std::optional<cif_number> number = read_cif_number(value);
    if (!number) {
        throw std::runtime_error("line " + std::to_string(line_of(text_, token.begin)) + ": '" +
                                 std::string(value.substr(0, 40)) + "' is no number");
    }
    return number;
}

void cif_block_rewriter::put(const cif_token& token, const std::string& text) {
    edits_.replace(token.begin, token.end, text);
}

void cif_block_rewriter::rewrite(const space_group& old_group, const space_group& new_group,
                                 const basis_change& change) {
    const fraction factor = determinant(change.matrix);
    add_note(change);
    rewrite_cell(change);
    rewrite_volume_and_z(factor);
    rewrite_symbols(old_group, new_group, change);
    rewrite_operators(new_group);
    for (const cif_table& table : section_.tables) {
        rewrite_positions(table, change);
        for (const char* kind : {"u_", "b_", "beta_"}) rewrite_displacements(table, kind, change);
        rewrite_indices(table, change);
        multiply_column(table, "_atom_site_symmetry_multiplicity", factor);
        multiply_column(table, "_atom_site_site_symmetry_multiplicity", factor);
    }
}

void cif_block_rewriter::add_note(const basis_change& change) {
    std::string note =
        "\n# In other axes: (" + basis_text(change) + "), origin " + text(change.origin) + ".";
    for (const cif_table& table : section_.tables) {
        for (std::size_t i = 0; i < table.tags.size(); ++i) {
            if (!stays_in_old_axes(table.tags[i])) continue;
            note += "\n# Not changed, and so in the old axes: " + table.names[i];
        }
    }
    edits_.replace(section_.head, section_.head, note);
}

void cif_block_rewriter::rewrite_cell(const basis_change& change) {
    std::array<const cif_token*, 6> tokens{};
    std::array<cif_number, 6> old{};
    cell_lengths cell{};
    int decimals[2] = {0, 0};
    for (std::size_t i = 0; i < 6; ++i) {
        tokens[i] = single(cell_tags[i]);
        const std::optional<cif_number> number =
            tokens[i] == nullptr ? std::nullopt : number_at(*tokens[i]);
        if (!number) return;
        old[i] = *number;
        cell[i] = number->value.to_double();
        decimals[i / 3] = std::max(decimals[i / 3], number->decimals);
    }
    check_cell(cell);
    const cell_lengths result = transformed_cell(cell, change.matrix);
    cell_lengths variance{};
    for (std::size_t i = 0; i < 6; ++i) {
        if (old[i].uncertainty <= 0) continue;
        cell_lengths moved = cell;
        const double step = 1e-5 * cell[i];
        moved[i] += step;
        const cell_lengths there = transformed_cell(moved, change.matrix);
        for (std::size_t j = 0; j < 6; ++j) {
            variance[j] += std::pow((there[j] - result[j]) / step * old[i].uncertainty, 2);
        }
    }
    for (std::size_t j = 0; j < 6; ++j) {
        if (const std::optional<std::size_t> same =
                j < 3 ? old_axis(change.matrix, j) : std::nullopt) {
            const cif_token& token = *tokens[*same];
            put(*tokens[j], std::string(text_.substr(token.begin, token.end - token.begin)));
            continue;
        }
        // Mixed quantities get one decimal more, so that the way back leads home. An uncertainty
        // far below the last decimal is rounding.
        const int n = std::max(decimals[j / 3], 2) + 1;
        const double uncertainty = std::sqrt(variance[j]);
        const bool is_sharp = uncertainty < 1e-3 * std::pow(10.0, -n);
        const bool is_whole = is_sharp && std::abs(result[j] - std::round(result[j])) < 1e-7;
        put(*tokens[j], cif_number_text(result[j], is_whole ? 0 : n, is_sharp ? 0 : uncertainty));
    }
    old_cell_ = cell;
    new_cell_ = result;
}

void cif_block_rewriter::rewrite_volume_and_z(const fraction& factor) {
    if (factor == fraction(1)) return;
    for (const std::string_view tag : {"_cell_volume", "_cell_formula_units_z"}) {
        const cif_token* token = single(tag);
        const std::optional<cif_number> number = token ? number_at(*token) : std::nullopt;
        if (!number) continue;
        put(*token, cif_number_text(number->value * factor, number->decimals,
                                    number->uncertainty * std::abs(factor.to_double())));
    }
}

void cif_block_rewriter::rewrite_symbols(const space_group& old_group, const space_group& new_group,
                                         const basis_change& change) {
    const std::string hm = new_group.tabulated ? cif_name(new_group.name) : "?";
    const std::string full = new_group.tabulated ? cif_name(new_group.row->full_symbol) : "?";
    const std::pair<std::string_view, std::string> values[] = {
        {"_symmetry_space_group_name_h-m", hm},
        {"_space_group_name_h-m_alt", hm},
        {"_space_group_name_h-m", hm},
        {"_space_group_name_h-m_full", full},
        {"_space_group_name_h-m_ref", hm},
        {"_symmetry_space_group_name_hall", cif_name(new_group.hall)},
        {"_space_group_name_hall", cif_name(new_group.hall)},
        {"_space_group_transform_pp_abc", "?"},
        {"_space_group_transform_qq_xyz", "?"},
        {"_space_group_reference_setting", "?"}};
    for (const auto& [tag, value] : values) {
        if (const cif_token* token = single(tag)) put(*token, value);
    }
    // The letters hang on the way to the standard setting.
    if (new_group.to_standard == inverse(change) * old_group.to_standard) return;
    for (const cif_table& table : section_.tables) {
        const int column = table.column("_atom_site_wyckoff_symbol");
        for (std::size_t row = 0; column >= 0 && row < table.n_rows(); ++row) {
            put(table.at(row, static_cast<std::size_t>(column)), "?");
        }
    }
}

void cif_block_rewriter::rewrite_operators(const space_group& new_group) {
    for (const cif_table& table : section_.tables) {
        std::optional<std::size_t> xyz;
        for (std::size_t i = 0; i < table.tags.size(); ++i) {
            if (is_one_of(table.tags[i], operator_tags)) xyz = i;
        }
        if (!xyz) continue;
        std::string loop = "loop_\n";
        for (const std::string& name : table.names) loop += name + "\n";
        for (std::size_t row = 0; row < new_group.operators.size(); ++row) {
            for (std::size_t i = 0; i < table.tags.size(); ++i) {
                const bool is_number = table.tags[i].ends_with("_id");
                loop += i > 0 ? " " : "";
                loop += i == *xyz   ? xyz_text(new_group.operators[row])
                        : is_number ? std::to_string(row + 1)
                                    : "?";
            }
            loop += "\n";
        }
        loop.pop_back();
        edits_.replace(table.begin, table.end, loop);
    }
}

void cif_block_rewriter::rewrite_positions(const cif_table& table, const basis_change& change) {
    std::array<std::size_t, 3> columns{};
    for (std::size_t i = 0; i < 3; ++i) {
        const int column = table.column(std::string("_atom_site_fract_") + "xyz"[i]);
        if (column < 0) return;
        columns[i] = static_cast<std::size_t>(column);
    }
    const fraction_matrix back = inverse(change.matrix);
    for (std::size_t row = 0; row < table.n_rows(); ++row) {
        std::array<cif_number, 3> old{};
        std::array<bool, 3> known{};
        for (std::size_t i = 0; i < 3; ++i) {
            const std::optional<cif_number> number = number_at(table.at(row, columns[i]));
            known[i] = number.has_value();
            old[i] = number.value_or(cif_number());
        }
        if (known == std::array<bool, 3>{}) continue;
        const fraction_vector point =
            transformed({old[0].value, old[1].value, old[2].value}, change);
        for (std::size_t i = 0; i < 3; ++i) {
            double variance = 0;
            int decimals = 0;
            bool unknown = false;
            for (std::size_t j = 0; j < 3; ++j) {
                if (back[i][j].is_zero()) continue;
                unknown = unknown || !known[j];
                variance += std::pow(back[i][j].to_double() * old[j].uncertainty, 2);
                decimals = std::max(decimals, old[j].decimals);
            }
            put(table.at(row, columns[i]),
                unknown ? "?" : cif_number_text(point[i], decimals, std::sqrt(variance)));
        }
    }
}

namespace {

constexpr std::array<std::array<std::size_t, 2>, 6> tensor_places = {
    {{0, 0}, {1, 1}, {2, 2}, {0, 1}, {0, 2}, {1, 2}}};

// How the six components go over: beta' = Q beta Q^T with Q = P^-1; U and B are beta without the
// lengths of the reciprocal axes (International Tables for Crystallography D, 1.9.2).
std::array<std::array<double, 6>, 6> tensor_map(const fraction_matrix& back,
                                                const std::array<double, 3>& old_lengths,
                                                const std::array<double, 3>& new_lengths) {
    std::array<std::array<double, 6>, 6> map{};
    for (std::size_t to = 0; to < 6; ++to) {
        const auto [i, j] = tensor_places[to];
        for (std::size_t from = 0; from < 6; ++from) {
            const auto [k, l] = tensor_places[from];
            double part = back[i][k].to_double() * back[j][l].to_double();
            if (k != l) part += back[i][l].to_double() * back[j][k].to_double();
            map[to][from] =
                part * old_lengths[k] * old_lengths[l] / (new_lengths[i] * new_lengths[j]);
        }
    }
    return map;
}

}  // namespace

void cif_block_rewriter::rewrite_displacements(const cif_table& table, const std::string& kind,
                                               const basis_change& change) {
    std::array<std::size_t, 6> columns{};
    for (std::size_t i = 0; i < 6; ++i) {
        const auto [k, l] = tensor_places[i];
        const int column = table.column("_atom_site_aniso_" + kind + std::to_string(k + 1) +
                                        std::to_string(l + 1));
        if (column < 0) return;
        columns[i] = static_cast<std::size_t>(column);
    }
    std::array<double, 3> old_lengths = {1, 1, 1}, new_lengths = {1, 1, 1};
    if (kind != "beta_") {
        if (!old_cell_) throw std::runtime_error(section_.name + ": displacements without a cell");
        old_lengths = reciprocal_lengths(*old_cell_);
        new_lengths = reciprocal_lengths(*new_cell_);
    }
    bool permuted = true;
    for (std::size_t j = 0; j < 3; ++j) {
        permuted = permuted && old_axis(change.matrix, j).has_value();
    }
    const auto map = tensor_map(inverse(change.matrix), old_lengths, new_lengths);
    for (std::size_t row = 0; row < table.n_rows(); ++row) {
        std::array<cif_number, 6> old{};
        std::size_t known = 0;
        int decimals = 0;
        for (std::size_t i = 0; i < 6; ++i) {
            const std::optional<cif_number> number = number_at(table.at(row, columns[i]));
            known += number.has_value() ? 1 : 0;
            old[i] = number.value_or(cif_number());
            decimals = std::max(decimals, old[i].decimals);
        }
        if (known == 0) continue;
        if (known < 6) {
            for (const std::size_t column : columns) put(table.at(row, column), "?");
            continue;
        }
        for (std::size_t to = 0; to < 6; ++to) {
            double value = 0, variance = 0;
            for (std::size_t from = 0; from < 6; ++from) {
                value += map[to][from] * old[from].value.to_double();
                variance += std::pow(map[to][from] * old[from].uncertainty, 2);
            }
            put(table.at(row, columns[to]),
                cif_number_text(value, decimals + (permuted ? 0 : 1), std::sqrt(variance)));
        }
    }
}

void cif_block_rewriter::rewrite_indices(const cif_table& table, const basis_change& change) {
    for (std::size_t h = 0; h < table.tags.size(); ++h) {
        if (!table.tags[h].ends_with("_index_h")) continue;
        const std::string stem = table.tags[h].substr(0, table.tags[h].size() - 1);
        const int k = table.column(stem + "k"), l = table.column(stem + "l");
        if (k < 0 || l < 0) continue;
        const std::size_t columns[] = {h, static_cast<std::size_t>(k), static_cast<std::size_t>(l)};
        for (std::size_t row = 0; row < table.n_rows(); ++row) {
            fraction_vector hkl;
            bool known = true;
            for (std::size_t i = 0; i < 3; ++i) {
                const std::optional<cif_number> number = number_at(table.at(row, columns[i]));
                known = known && number.has_value();
                if (number) hkl[i] = number->value;
            }
            if (!known) continue;
            const fraction_vector turned = transformed_indices(hkl, change.matrix);
            if (!is_integer(turned)) {
                const int line = line_of(text_, table.at(row, h).begin);
                throw std::runtime_error("line " + std::to_string(line) + ": reflection " +
                                         text(hkl) + " has no whole indices in the new axes");
            }
            for (std::size_t i = 0; i < 3; ++i) put(table.at(row, columns[i]), turned[i].text());
        }
    }
}

void cif_block_rewriter::multiply_column(const cif_table& table, std::string_view tag,
                                         const fraction& factor) {
    const int column = table.column(tag);
    if (column < 0 || factor == fraction(1)) return;
    for (std::size_t row = 0; row < table.n_rows(); ++row) {
        const cif_token& token = table.at(row, static_cast<std::size_t>(column));
        if (const std::optional<cif_number> number = number_at(token)) {
            put(token, cif_number_text(number->value * factor, 0, 0));
        }
    }
}

}  // namespace lomar
