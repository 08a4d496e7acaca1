#include "analysis/point_group.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace lomar {

namespace {

// How many operators of the kinds -1, 2, m, 3, -3, 4, -4, 6, -6 a point group has.
using kind_counts = std::array<int, 9>;

struct type_row {
    point_group_type type;
    kind_counts counts;
};

using enum axes_family;

constexpr std::array<type_row, 32> types = {{
    {{"1", triclinic}, {0, 0, 0, 0, 0, 0, 0, 0, 0}},
    {{"-1", triclinic}, {1, 0, 0, 0, 0, 0, 0, 0, 0}},
    {{"2", monoclinic}, {0, 1, 0, 0, 0, 0, 0, 0, 0}},
    {{"m", monoclinic}, {0, 0, 1, 0, 0, 0, 0, 0, 0}},
    {{"2/m", monoclinic}, {1, 1, 1, 0, 0, 0, 0, 0, 0}},
    {{"222", orthorhombic}, {0, 3, 0, 0, 0, 0, 0, 0, 0}},
    {{"mm2", orthorhombic}, {0, 1, 2, 0, 0, 0, 0, 0, 0}},
    {{"mmm", orthorhombic}, {1, 3, 3, 0, 0, 0, 0, 0, 0}},
    {{"4", tetragonal}, {0, 1, 0, 0, 0, 2, 0, 0, 0}},
    {{"-4", tetragonal}, {0, 1, 0, 0, 0, 0, 2, 0, 0}},
    {{"4/m", tetragonal}, {1, 1, 1, 0, 0, 2, 2, 0, 0}},
    {{"422", tetragonal}, {0, 5, 0, 0, 0, 2, 0, 0, 0}},
    {{"4mm", tetragonal}, {0, 1, 4, 0, 0, 2, 0, 0, 0}},
    {{"-42m", tetragonal}, {0, 3, 2, 0, 0, 0, 2, 0, 0}},
    {{"4/mmm", tetragonal}, {1, 5, 5, 0, 0, 2, 2, 0, 0}},
    {{"3", hexagonal}, {0, 0, 0, 2, 0, 0, 0, 0, 0}},
    {{"-3", hexagonal}, {1, 0, 0, 2, 2, 0, 0, 0, 0}},
    {{"32", hexagonal}, {0, 3, 0, 2, 0, 0, 0, 0, 0}},
    {{"3m", hexagonal}, {0, 0, 3, 2, 0, 0, 0, 0, 0}},
    {{"-3m", hexagonal}, {1, 3, 3, 2, 2, 0, 0, 0, 0}},
    {{"6", hexagonal}, {0, 1, 0, 2, 0, 0, 0, 2, 0}},
    {{"-6", hexagonal}, {0, 0, 1, 2, 0, 0, 0, 0, 2}},
    {{"6/m", hexagonal}, {1, 1, 1, 2, 2, 0, 0, 2, 2}},
    {{"622", hexagonal}, {0, 7, 0, 2, 0, 0, 0, 2, 0}},
    {{"6mm", hexagonal}, {0, 1, 6, 2, 0, 0, 0, 2, 0}},
    {{"-62m", hexagonal}, {0, 3, 4, 2, 0, 0, 0, 0, 2}},
    {{"6/mmm", hexagonal}, {1, 7, 7, 2, 2, 0, 0, 2, 2}},
    {{"23", cubic}, {0, 3, 0, 8, 0, 0, 0, 0, 0}},
    {{"m-3", cubic}, {1, 3, 3, 8, 8, 0, 0, 0, 0}},
    {{"432", cubic}, {0, 9, 0, 8, 0, 6, 0, 0, 0}},
    {{"-43m", cubic}, {0, 3, 6, 8, 0, 0, 6, 0, 0}},
    {{"m-3m", cubic}, {1, 9, 9, 8, 8, 6, 6, 0, 0}},
}};

// The place of a kind in kind_counts.
std::size_t place_of(int kind) {
    constexpr std::array<int, 9> kinds = {-1, 2, -2, 3, -3, 4, -4, 6, -6};
    return static_cast<std::size_t>(std::find(kinds.begin(), kinds.end(), kind) - kinds.begin());
}

}  // namespace

int rotation_kind(const int_matrix& rot) {
    const int sign = determinant(rot);
    if (sign != 1 && sign != -1) return 0;
    switch (sign * trace(rot)) {
        case 3:
            return sign;
        case -1:
            return 2 * sign;
        case 0:
            return 3 * sign;
        case 1:
            return 4 * sign;
        case 2:
            return 6 * sign;
        default:
            return 0;
    }
}

int_matrix proper_part(const int_matrix& rot) { return determinant(rot) < 0 ? negated(rot) : rot; }

point_group_type point_group_of(std::span<const symop> operators) {
    kind_counts counts{};
    for (const symop& op : operators) {
        const std::size_t place = place_of(rotation_kind(op.rot));
        if (place < counts.size()) ++counts[place];
    }
    for (const type_row& row : types) {
        if (row.counts == counts) return row.type;
    }
    throw std::runtime_error("the rotations make no crystallographic point group");
}

}  // namespace lomar
