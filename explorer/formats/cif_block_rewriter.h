#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "analysis/transform.h"
#include "formats/cif_number.h"
#include "formats/cif_text.h"
#include "group/space_group.h"

namespace lomar {

/// Enters what a change of axes does to one block of a CIF into the edits of its text: see
/// transformed_cif. Throws std::runtime_error with the line of what can't be read.
class cif_block_rewriter {
public:
    cif_block_rewriter(std::string_view text, const cif_section& section, text_edits& edits)
        : text_(text), section_(section), edits_(edits) {}

    void rewrite(const space_group& old_group, const space_group& new_group,
                 const basis_change& change);

private:
    /// What was done, and what was left, as comments after the name of the block.
    void add_note(const basis_change& change);
    void rewrite_cell(const basis_change& change);
    void rewrite_volume_and_z(const fraction& factor);
    void rewrite_symbols(const space_group& old_group, const space_group& new_group,
                         const basis_change& change);
    void rewrite_operators(const space_group& new_group);
    void rewrite_positions(const cif_table& table, const basis_change& change);
    void rewrite_displacements(const cif_table& table, const std::string& kind,
                               const basis_change& change);
    void rewrite_indices(const cif_table& table, const basis_change& change);
    void multiply_column(const cif_table& table, std::string_view tag, const fraction& factor);

    // The value of a name, and the number that it is; nothing for `?` and `.`.
    const cif_token* single(std::string_view tag) const;
    std::optional<cif_number> number_at(const cif_token& token) const;
    void put(const cif_token& token, const std::string& text);

    std::string_view text_;
    const cif_section& section_;
    text_edits& edits_;
    std::optional<cell_lengths> old_cell_;
    std::optional<cell_lengths> new_cell_;
};

}  // namespace lomar
