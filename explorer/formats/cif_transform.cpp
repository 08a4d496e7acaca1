#include "formats/cif_transform.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <stdexcept>
#include <vector>

#include "analysis/completion.h"
#include "analysis/identify.h"
#include "formats/cif_block_rewriter.h"
#include "formats/readers.h"
#include "group/names.h"

namespace lomar {

space_group group_of_operators(std::span<const symop> operators) {
    const completed_group complete_group = complete(operators);
    const identification found = identify(complete_group);
    const space_group nearest = group_of(*found.row);
    if (found.match == match_kind::exact) return nearest;
    return in_other_axes(nearest, inverse(found.change));
}

namespace {

// A number, or a symbol that names another number, contradicts the operators.
void check_names(const operator_block& block, const space_group& group) {
    const auto refuse = [&](const std::string& says) {
        throw std::runtime_error("data_" + block.name + ": " + says +
                                 ", but the operators are those of number " +
                                 std::to_string(group.row->number) + ", " + group.name);
    };
    if (block.number != 0 && block.number != group.row->number) {
        refuse("the number is " + std::to_string(block.number));
    }
    for (const std::string& name : {block.symbol, block.hall.empty() ? "" : "hall:" + block.hall}) {
        if (name.empty()) continue;
        std::optional<named_group> named;
        try {
            named = resolve_symbol(name);
        } catch (const std::runtime_error&) {
            continue;  // a symbol that nobody knows contradicts nothing
        }
        if (named->group.row->number != group.row->number) {
            refuse("the symbol '" + name + "' is number " +
                   std::to_string(named->group.row->number));
        }
    }
}

space_group group_of_block(const operator_block& block) {
    if (block.magnetic) {
        throw std::runtime_error("data_" + block.name +
                                 ": magnetic groups are not brought into other axes");
    }
    const completed_group found = complete(block.operators);
    const std::vector<symop> operators = operators_of_cell(found);
    const space_group group = group_of_operators(operators);
    check_names(block, group);
    return group;
}

// The name of a section as the reader of operators tells it.
std::string block_name(const cif_section& section) {
    if (section.name.size() < 5 || section.name[4] != '_') return {};  // global_
    const std::string name = section.name.substr(5);
    return name.empty() ? "#" : name;
}

}  // namespace

std::string transformed_cif(const std::string& text, const axes_choice& axes) {
    const std::vector<operator_block> blocks = read_cif_operators(text);
    text_edits edits;
    std::size_t n_rewritten = 0;
    for (const cif_section& section : cif_sections(text)) {
        const std::string name = block_name(section);
        const auto block =
            std::find_if(blocks.begin(), blocks.end(),
                         [&](const operator_block& each) { return each.name == name; });
        if (block == blocks.end()) continue;
        const space_group old_group = group_of_block(*block);
        const basis_change change = axes(old_group);
        const space_group new_group = in_other_axes(old_group, change);
        cif_block_rewriter(text, section, edits).rewrite(old_group, new_group, change);
        ++n_rewritten;
    }
    if (n_rewritten != blocks.size()) {
        throw std::runtime_error("a data block of the CIF can't be found again");
    }
    return edits.applied_to(text);
}

}  // namespace lomar
