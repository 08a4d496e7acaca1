#include <algorithm>
#include <vector>

#include "formats/operator_files.h"

namespace lomar {

namespace {

struct shelx_lattice {
    int number;
    std::vector<fraction_vector> centring;  // besides the null vector, sorted
};

std::vector<shelx_lattice> shelx_lattices() {
    const fraction half(1, 2);
    const fraction third(1, 3);
    const fraction thirds(2, 3);
    const fraction_vector a = {0, half, half};
    const fraction_vector b = {half, 0, half};
    const fraction_vector c = {half, half, 0};
    return {{1, {}},
            {2, {{half, half, half}}},
            {3, {{third, thirds, thirds}, {thirds, third, third}}},
            {4, {a, b, c}},
            {5, {a}},
            {6, {b}},
            {7, {c}}};
}

// The number of the lattice; 0 if it has none.
int lattice_number(const space_group& group) {
    std::vector<fraction_vector> centring(group.centring.begin() + 1, group.centring.end());
    std::sort(centring.begin(), centring.end());
    for (const shelx_lattice& lattice : shelx_lattices()) {
        if (lattice.centring == centring) return lattice.number;
    }
    return 0;
}

bool has_inversion_at_origin(const space_group& group) {
    const symop inversion{negated(unit_matrix), {}, 1};
    return std::find(group.operators.begin(), group.operators.end(), inversion) !=
           group.operators.end();
}

std::string capitals(std::string text) {
    for (char& c : text) {
        if (c >= 'x' && c <= 'z') c = static_cast<char>(c - 'x' + 'X');
    }
    return text;
}

}  // namespace

std::string shelx_cards(const space_group& group) {
    const int lattice = lattice_number(group);
    const bool centre = has_inversion_at_origin(group);
    std::string text = "LATT ";
    text.append(centre ? "" : "-").append(std::to_string(std::max(lattice, 1))).append("\n");
    const std::size_t n = lattice == 0 ? group.operators.size() : group.primitive_order();
    for (std::size_t i = 1; i < n; ++i) {
        const symop& op = group.operators[i];
        if (centre && determinant(op.rot) < 0) continue;
        text.append("SYMM ").append(capitals(xyz_text(op))).append("\n");
    }
    return text;
}

}  // namespace lomar
