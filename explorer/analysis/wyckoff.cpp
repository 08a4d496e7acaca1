#include "analysis/wyckoff.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <string_view>

#include "analysis/oriented_symbol.h"
#include "group/embedded_data.h"

namespace lomar {

namespace {

std::string_view take_field(std::string_view& text, char separator) {
    const std::size_t end = text.find(separator);
    const std::string_view field = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return field;
}

int take_digits(std::string_view& text) {
    int value = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), value).ptr;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return value;
}

// One coordinate as the table has it: `-x+1/2`, `2x`, `1/4`, `0`.
void read_coordinate(std::string_view text, std::array<int, 3>& factors, fraction& constant) {
    while (!text.empty()) {
        int sign = 1;
        if (text[0] == '-' || text[0] == '+') {
            sign = text[0] == '-' ? -1 : 1;
            text.remove_prefix(1);
        }
        const bool digits = text[0] >= '0' && text[0] <= '9';
        const int number = digits ? take_digits(text) : 1;
        if (!text.empty() && text[0] >= 'x' && text[0] <= 'z') {
            factors[static_cast<std::size_t>(text[0] - 'x')] = sign * number;
            text.remove_prefix(1);
        } else if (!text.empty() && text[0] == '/') {
            text.remove_prefix(1);
            constant = fraction(sign * number, take_digits(text));
        } else {
            constant = fraction(sign * number);
        }
    }
}

// An affine space of points in some axes.
struct point_space {
    fraction_vector point;
    std::vector<fraction_vector> directions;
};

point_space space_of(std::string_view coordinates, const basis_change& to_standard) {
    int_matrix factors{};
    fraction_vector constants;
    for (std::size_t i = 0; i < 3; ++i) {
        read_coordinate(take_field(coordinates, ','), factors[i], constants[i]);
    }
    point_space result;
    result.point = to_standard.matrix * constants + to_standard.origin;
    for (std::size_t j = 0; j < 3; ++j) {
        const fraction_vector direction = {factors[0][j], factors[1][j], factors[2][j]};
        if (direction != fraction_vector{}) {
            result.directions.push_back(to_standard.matrix * direction);
        }
    }
    return result;
}

void subtract(fraction_vector& from, const fraction& factor, const fraction_vector& what) {
    for (std::size_t i = 0; i < 3; ++i) from[i] -= factor * what[i];
}

// Brings the directions to the form in which each varies a coordinate of its own, the first that
// vary independently, and the point to 0 there. Gives these coordinates.
std::vector<std::size_t> reduce(point_space& space) {
    std::vector<std::size_t> parameters;
    auto& rows = space.directions;
    for (std::size_t column = 0; column < 3 && parameters.size() < rows.size(); ++column) {
        const std::size_t done = parameters.size();
        std::size_t found = done;
        while (found < rows.size() && rows[found][column].is_zero()) ++found;
        if (found == rows.size()) continue;
        std::swap(rows[found], rows[done]);
        const fraction pivot = rows[done][column];
        for (fraction& part : rows[done]) part /= pivot;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (i != done) subtract(rows[i], fraction(rows[i][column]), rows[done]);
        }
        subtract(space.point, fraction(space.point[column]), rows[done]);
        parameters.push_back(column);
    }
    return parameters;
}

// The space as a map from parameters, each called after its coordinate, with smallest integers.
symop map_of(point_space space) {
    const std::vector<std::size_t> parameters = reduce(space);
    symop result;
    result.rot = {};
    result.trans = modulo_one(space.point);
    for (std::size_t n = 0; n < parameters.size(); ++n) {
        const fraction_vector& direction = space.directions[n];
        const std::int64_t common =
            std::lcm(std::lcm(direction[0].den(), direction[1].den()), direction[2].den());
        for (std::size_t i = 0; i < 3; ++i) {
            result.rot[i][parameters[n]] =
                static_cast<int>((direction[i] * fraction(common)).num());
        }
    }
    return result;
}

bool same_modulo_centring(const symop& a, const symop& b, const space_group& group) {
    if (a.rot != b.rot) return false;
    if (a.trans == b.trans) return true;
    const fraction_vector difference = modulo_one(a.trans - b.trans);
    return std::find(group.centring.begin(), group.centring.end(), difference) !=
           group.centring.end();
}

// Of the copies of a position with the same parameters, the one with the smallest constants, so
// that the orbit of the origin begins with it in axes with any origin.
symop smallest_copy(const symop& map, const space_group& group) {
    symop best = map;
    for (const symop& op : group.operators) {
        const symop image = op * map;
        if (image.rot != map.rot) continue;
        point_space space{image.trans, {}};
        for (std::size_t j = 0; j < 3; ++j) {
            const int_vector column = {map.rot[0][j], map.rot[1][j], map.rot[2][j]};
            if (column == int_vector{}) continue;
            space.directions.push_back({column[0], column[1], column[2]});
        }
        best = std::min(best, map_of(space));
    }
    return best;
}

std::vector<symop> orbit_of(const symop& map, const space_group& group) {
    std::vector<symop> orbit;
    for (const symop& op : group.representatives()) {
        const symop image = modulo_lattice(op * map);
        const auto same = [&](const symop& met) { return same_modulo_centring(met, image, group); };
        if (std::none_of(orbit.begin(), orbit.end(), same)) orbit.push_back(image);
    }
    return orbit;
}

}  // namespace

std::vector<wyckoff_position> wyckoff_positions(const space_group& group) {
    std::vector<wyckoff_position> result;
    std::string_view table = wyckoff_data;
    take_field(table, '\n');
    while (!table.empty()) {
        std::string_view line = take_field(table, '\n');
        std::string_view number_field = take_field(line, '\t');
        const int number = take_digits(number_field);
        if (number < group.row->number) continue;
        if (number > group.row->number) break;
        wyckoff_position position;
        position.letter = take_field(line, '\t')[0];
        take_field(line, '\t');  // the multiplicity in the standard cell
        take_field(line, '\t');  // the point group
        position.site_symmetry = oriented_symbol(take_field(line, '\t'), group);
        symop map = map_of(space_of(line, group.to_standard));
        if (group.to_standard != basis_change()) map = smallest_copy(map, group);
        position.orbit = orbit_of(map, group);
        position.multiplicity = static_cast<int>(position.orbit.size() * group.centring.size());
        for (const symop& image : position.orbit) position.positions.push_back(xyz_text(image));
        result.push_back(std::move(position));
    }
    std::reverse(result.begin(), result.end());
    return result;
}

}  // namespace lomar
