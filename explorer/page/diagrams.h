#pragma once

#include <span>
#include <string>
#include <string_view>

#include "drawing/diagram.h"
#include "group/symop.h"

namespace lomar {

/// What the figures of a page show. Operators of a magnetic group have their time reversal in the
/// attributes, as in operator_table.
struct drawn_group {
    std::span<const symop> operators;
    std::string name;
    bool magnetic = false;
};

/// The section of a page with the symmetry elements in projection along a, b and c, that of the
/// printed tables first, and the general positions.
std::string diagram_section(const drawn_group& group);

/// The same with empty figures, for a page that fills them one after the other. Each has its key
/// as the attribute data-figure.
std::string empty_diagram_section(const drawn_group& group);
/// What a key says: part and axis. Throws std::invalid_argument for another text.
diagram_options figure_options(std::string_view key);
/// The content of one of them, by its key: `elements-a`, `positions-c`. Throws
/// std::invalid_argument for another text.
std::string figure_content(const drawn_group& group, std::string_view key);

}  // namespace lomar
