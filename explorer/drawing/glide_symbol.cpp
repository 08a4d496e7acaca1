#include "drawing/glide_symbol.h"

#include <algorithm>
#include <cstdlib>

namespace lomar {

namespace {

// A cell axis in the plane, the projection axis first, or 3 where there is none.
std::size_t axis_in_plane(const int_vector& plane) {
    for (std::size_t i = 3; i-- > 0;) {
        if (plane[i] == 0) return i;
    }
    return 3;
}

std::int64_t length_of(const scaled_vector& v) {
    return std::abs(v[0]) + std::abs(v[1]) + std::abs(v[2]);
}

// The shorter first; of equally long ones that which rises, then that which runs along the axes.
bool comes_before(const scaled_vector& a, const scaled_vector& b) {
    if (length_of(a) != length_of(b)) return length_of(a) < length_of(b);
    if (a[2] != b[2]) return a[2] > b[2];
    return a > b;
}

// The shortest of all glide vectors, of those along one axis, of those without a component along
// it, and of those both of whose parts are half a translation.
struct choices {
    bool has_axial = false, has_rest = false, has_diagonal = false;
    scaled_vector shortest{}, axial{}, rest{}, diagonal{};
};

void offer(bool& has, scaled_vector& best, const scaled_vector& v) {
    if (!has || comes_before(v, best)) best = v;
    has = true;
}

bool is_diagonal(const lattice& translations, const scaled_vector& v, std::size_t axis) {
    scaled_vector twice{};
    twice[axis] = 2 * v[axis];
    return translations.contains(twice);
}

choices choices_among(const lattice& translations, const std::vector<scaled_vector>& vectors,
                      std::size_t axis) {
    choices found;
    bool any = false;
    for (const scaled_vector& v : vectors) {
        offer(any, found.shortest, v);
        if (axis == 3) continue;
        if (length_of(v) == std::abs(v[axis])) {
            offer(found.has_axial, found.axial, v);
        } else if (v[axis] == 0) {
            offer(found.has_rest, found.rest, v);
        } else if (is_diagonal(translations, v, axis)) {
            offer(found.has_diagonal, found.diagonal, v);
        }
    }
    return found;
}

char letter_along(const scaled_vector& v, const char* letters) {
    for (std::size_t i = 0; i < 3; ++i) {
        if (length_of(v) == std::abs(v[i])) return letters[i];
    }
    return 'g';
}

}  // namespace

glide_symbol glide_symbol_of(const lattice& translations, const int_vector& plane,
                             const scaled_vector& glide, const char* letters) {
    std::vector<scaled_vector> vectors = translations.vectors_in_plane(plane);
    for (scaled_vector& v : vectors) {
        for (std::size_t i = 0; i < 3; ++i) v[i] += glide[i];
    }
    const std::size_t axis = axis_in_plane(plane);
    const choices found = choices_among(translations, vectors, axis);
    if (found.shortest == scaled_vector{}) return {};
    if (found.has_axial && found.has_rest) return {line_style::both, 'e', found.rest};
    if (found.has_axial) {
        return {axis == 2 ? line_style::upward : line_style::along,
                letter_along(found.axial, letters), found.axial};
    }
    if (found.has_rest) return {line_style::along, letter_along(found.rest, letters), found.rest};
    if (axis == 3) return {line_style::along, 'g', found.shortest};
    if (found.has_diagonal) return {line_style::diagonal, 'n', found.diagonal};
    return {line_style::diamond, 'd', found.shortest};
}

}  // namespace lomar
