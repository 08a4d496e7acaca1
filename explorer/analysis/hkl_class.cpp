#include "analysis/hkl_class.h"

#include <cstdlib>
#include <numeric>
#include <tuple>

namespace lomar {

namespace {

// x and y with x a + y b = gcd(a, b).
std::tuple<int, int, int> extended_gcd(int a, int b) {
    if (b == 0) return a < 0 ? std::tuple(-a, -1, 0) : std::tuple(a, 1, 0);
    const auto [common, x, y] = extended_gcd(b, a % b);
    return {common, y, x - a / b * y};
}

// A vector whose product with this primitive one is 1.
int_vector partner_of(const int_vector& v) {
    const auto [ab, x, y] = extended_gcd(v[0], v[1]);
    const auto [all, s, t] = extended_gcd(ab, v[2]);
    return {x * s, y * s, t};
}

int product(const int_vector& a, const int_vector& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

void set_column(int_matrix& matrix, std::size_t column, const int_vector& v) {
    for (std::size_t i = 0; i < 3; ++i) matrix[i][column] = v[i];
}

// The zone of a normal with 1 or -1 as component `solved`: that index follows from the two others.
hkl_class zone_by_indices(const int_vector& normal, std::size_t solved) {
    hkl_class result;
    result.n_parameters = 2;
    std::size_t column = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        if (i == solved) continue;
        result.pattern[i][column] = 1;
        result.pattern[solved][column] = -normal[i] * normal[solved];
        result.parameters[column][i] = 1;
        result.letters += "hkl"[i];
        ++column;
    }
    return result;
}

// Any zone: two vectors of the plane, and a third that completes a basis of the lattice.
hkl_class zone_by_basis(const int_vector& n) {
    const auto [common, x, y] = extended_gcd(n[0], n[1]);
    int_matrix basis{};
    set_column(basis, 0, {n[1] / common, -n[0] / common, 0});
    set_column(basis, 1, {-x * n[2], -y * n[2], common});
    set_column(basis, 2, partner_of(n));
    hkl_class result;
    result.n_parameters = 2;
    result.letters = "pq";
    result.parameters = to_integers(inverse(to_fractions(basis)));
    result.parameters[2] = {};
    set_column(basis, 2, {});
    result.pattern = basis;
    return result;
}

int_vector opposite(const int_vector& v) { return {-v[0], -v[1], -v[2]}; }

int_vector smallest_multiple(const int_vector& v) {
    const int common = std::gcd(std::gcd(v[0], v[1]), v[2]);
    return {v[0] / common, v[1] / common, v[2] / common};
}

int_vector cross(const int_vector& a, const int_vector& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

// One index as a sum of parameters: `h`, `-2h`, `0`.
std::string index_text(const std::array<int, 3>& factors, const std::string& letters) {
    std::string result;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        const int factor = factors[i];
        if (factor == 0) continue;
        if (factor > 0 && !result.empty()) result += '+';
        if (factor == -1) result += '-';
        if (std::abs(factor) > 1) result += std::to_string(factor);
        result += letters[i];
    }
    return result.empty() ? "0" : result;
}

bool is_sum(const std::string& index) { return index.find_first_of("+-", 1) != std::string::npos; }

}  // namespace

bool hkl_class::contains(const int_vector& hkl) const {
    return pattern * (parameters * hkl) == hkl;
}

bool hkl_class::contains(const hkl_class& other) const {
    return pattern * parameters * other.pattern == other.pattern;
}

bool hkl_class::fixed_by(const int_matrix& rotation) const {
    for (std::size_t column = 0; column < static_cast<std::size_t>(n_parameters); ++column) {
        for (std::size_t j = 0; j < 3; ++j) {
            std::int64_t image = 0;
            for (std::size_t i = 0; i < 3; ++i) {
                image += std::int64_t{rotation[i][j]} * pattern[i][column];
            }
            if (image != pattern[j][column]) return false;
        }
    }
    return true;
}

std::string hkl_class::name(bool four_indices) const {
    std::string index[3];
    for (std::size_t i = 0; i < 3; ++i) index[i] = index_text(pattern[i], letters);
    std::string third;
    if (four_indices) {
        std::array<int, 3> factors{};
        for (std::size_t j = 0; j < 3; ++j) factors[j] = -pattern[0][j] - pattern[1][j];
        third = index_text(factors, letters);
        if (is_sum(third)) third = "i";
    }
    if (letters[0] == 'p' || is_sum(index[0]) || is_sum(index[1]) || is_sum(index[2])) {
        return "(" + index[0] + "," + index[1] + "," + index[2] + ")";
    }
    return index[0] + index[1] + third + index[2];
}

hkl_class all_reflections() { return {unit_matrix, 3, unit_matrix, "hkl"}; }

hkl_class reflections_of_zone(const int_vector& normal) {
    for (std::size_t i = 3; i-- > 0;) {
        if (std::abs(normal[i]) == 1) return zone_by_indices(normal, i);
    }
    return zone_by_basis(normal);
}

hkl_class reflections_of_row(const int_vector& direction) {
    hkl_class result;
    result.n_parameters = 1;
    for (std::size_t i = 0; i < 3; ++i) {
        if (std::abs(direction[i]) != 1) continue;
        set_column(result.pattern, 0, direction[i] < 0 ? opposite(direction) : direction);
        result.parameters[0][i] = 1;
        result.letters = "hkl"[i];
        return result;
    }
    set_column(result.pattern, 0, direction);
    result.parameters[0] = partner_of(direction);
    result.letters = "p";
    return result;
}

hkl_class reflections_fixed_by(const int_matrix& rotation) {
    int_matrix rows = transposed(rotation);
    for (std::size_t i = 0; i < 3; ++i) --rows[i][i];
    if (rows == int_matrix{}) return all_reflections();
    int_vector row{};
    for (const int_vector& candidate : rows) {
        if (candidate != int_vector{}) row = candidate;
    }
    for (const int_vector& other : rows) {
        const int_vector direction = cross(row, other);
        if (direction == int_vector{}) continue;
        for (const int_vector& each : rows) {
            if (product(each, direction) != 0) return {};
        }
        return reflections_of_row(smallest_multiple(direction));
    }
    return reflections_of_zone(smallest_multiple(row));
}

namespace {

constexpr int_matrix hexagonal_metric = {{{2, -1, 0}, {-1, 2, 0}, {0, 0, 5}}};

bool keeps_metric(const space_group& group, const int_matrix& metric) {
    for (const symop& op : group.representatives()) {
        if (transposed(op.rot) * metric * op.rot != metric) return false;
    }
    return true;
}

// Axes as conventional ones have them: a metric that the group must leave as it is, and the classes
// then: normals of planes, directions of rows.
struct kind_of_axes {
    std::string_view crystal_system;
    int_matrix metric;
    std::vector<int_vector> normals;
    std::vector<int_vector> rows;
};

const std::vector<kind_of_axes>& kinds_of_axes() {
    constexpr int_vector a = {1, 0, 0}, b = {0, 1, 0}, c = {0, 0, 1};
    static const std::vector<kind_of_axes> kinds = {
        {"monoclinic", {{{2, 0, 1}, {0, 3, 0}, {1, 0, 5}}}, {b, a, c}, {b, a, c}},
        {"monoclinic", {{{2, 1, 0}, {1, 3, 0}, {0, 0, 5}}}, {c, a, b}, {c, a, b}},
        {"monoclinic", {{{2, 0, 0}, {0, 3, 1}, {0, 1, 5}}}, {a, b, c}, {a, b, c}},
        {"orthorhombic", {{{2, 0, 0}, {0, 3, 0}, {0, 0, 5}}}, {a, b, c}, {a, b, c}},
        {"tetragonal",
         {{{2, 0, 0}, {0, 2, 0}, {0, 0, 5}}},
         {c, a, b, {1, -1, 0}, {1, 1, 0}},
         {c, a, b, {1, 1, 0}, {1, -1, 0}}},
        {"hexagonal",
         hexagonal_metric,
         {c, {1, -1, 0}, {2, 1, 0}, {1, 2, 0}, {1, 1, 0}, b, a},
         {c, {1, -1, 0}, a, b, {1, 1, 0}, {1, -2, 0}, {-2, 1, 0}}},
        {"trigonal",
         {{{3, 1, 1}, {1, 3, 1}, {1, 1, 3}}},
         {{1, -1, 0}, {0, 1, -1}, {1, 0, -1}},
         {{1, 1, 1}}},
        {"cubic",
         unit_matrix,
         {a, b, c, {1, -1, 0}, {0, 1, -1}, {1, 0, -1}, {1, 1, 0}, {0, 1, 1}, {1, 0, 1}},
         {a, b, c}},
    };
    return kinds;
}

}  // namespace

bool has_hexagonal_axes(const space_group& group) {
    const std::string_view system = group.row->crystal_system;
    return (system == "trigonal" || system == "hexagonal") && keeps_metric(group, hexagonal_metric);
}

std::vector<hkl_class> conventional_classes(const space_group& group) {
    std::vector<hkl_class> result = {all_reflections()};
    const std::string_view system =
        has_hexagonal_axes(group) ? "hexagonal" : group.row->crystal_system;
    for (const kind_of_axes& kind : kinds_of_axes()) {
        if (kind.crystal_system != system || !keeps_metric(group, kind.metric)) continue;
        for (const int_vector& normal : kind.normals) {
            result.push_back(reflections_of_zone(normal));
        }
        for (const int_vector& row : kind.rows) result.push_back(reflections_of_row(row));
        break;
    }
    return result;
}

}  // namespace lomar
