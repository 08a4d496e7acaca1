#include "analysis/oriented_symbol.h"

#include <array>
#include <optional>

namespace lomar {

namespace {

using symbol_parts = std::array<std::string_view, 3>;

// Takes one part off the front: a dot, an axis, a plane, or an axis with the plane normal to it.
std::string_view take_part(std::string_view& rest) {
    std::size_t size = !rest.empty() && rest[0] == '-' ? 2 : 1;
    if (rest.size() > size + 1 && rest[size] == '/') size += 2;
    const std::string_view part = rest.substr(0, size);
    rest.remove_prefix(part.size());
    return part;
}

std::optional<symbol_parts> parts_of(std::string_view symbol, bool tetragonal) {
    symbol_parts parts;
    parts[0] = take_part(symbol);
    if (tetragonal && symbol.starts_with('.')) {
        parts[1] = take_part(symbol);
        parts[2] = symbol;
    } else if (tetragonal && symbol.ends_with('.')) {
        parts[1] = symbol.substr(0, symbol.size() - 1);
        parts[2] = ".";
    } else {
        parts[1] = take_part(symbol);
        parts[2] = take_part(symbol);
        if (!symbol.empty()) return std::nullopt;
    }
    if (parts[2].empty()) return std::nullopt;
    return parts;
}

// The place of a direction among the parts; 3 if it has none.
std::size_t place_of(const fraction_vector& direction, bool tetragonal) {
    std::size_t n_zero = 0;
    std::size_t nonzero = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        if (direction[i].is_zero()) {
            ++n_zero;
        } else {
            nonzero = i;
        }
    }
    if (n_zero == 2) return !tetragonal ? nonzero : nonzero == 2 ? 0 : 1;
    const bool diagonal = direction[0] == direction[1] || direction[0] == -direction[1];
    return tetragonal && direction[2].is_zero() && diagonal ? 2 : 3;
}

}  // namespace

std::string oriented_symbol(std::string_view standard_symbol, const space_group& group) {
    const std::string_view system = group.row->crystal_system;
    const bool tetragonal = system == "tetragonal";
    std::string unchanged(standard_symbol);
    if (!tetragonal && system != "orthorhombic") return unchanged;
    const std::optional<symbol_parts> parts = parts_of(standard_symbol, tetragonal);
    if (!parts) return unchanged;

    // The direction of each part in the standard axes: of c, a and a diagonal, or of a, b, c.
    int_matrix directions = unit_matrix;
    if (tetragonal) directions = {{{0, 0, 1}, {1, 0, 0}, {1, 1, 0}}};
    symbol_parts moved;
    for (std::size_t i = 0; i < 3; ++i) {
        const int_vector& d = directions[i];
        const std::size_t place =
            place_of(group.to_standard.matrix * fraction_vector{d[0], d[1], d[2]}, tetragonal);
        if (place == 3 || !moved[place].empty()) return unchanged;
        moved[place] = (*parts)[i];
    }
    std::string result;
    for (const std::string_view part : moved) result += part;
    return result;
}

}  // namespace lomar
