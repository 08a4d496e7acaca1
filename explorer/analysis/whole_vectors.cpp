#include "analysis/whole_vectors.h"

#include <numeric>
#include <stdexcept>
#include <utility>

#include "group/exact_integers.h"

namespace lomar {

namespace {

using namespace exact;

// x and y with x a + y b = gcd(a, b) >= 0.
struct bezout {
    std::int64_t divisor, x, y;
};

bezout extended_gcd(std::int64_t a, std::int64_t b) {
    bezout last{a, 1, 0};
    bezout now{b, 0, 1};
    while (now.divisor != 0) {
        const std::int64_t q = last.divisor / now.divisor;
        last = std::exchange(
            now, {last.divisor - q * now.divisor, last.x - q * now.x, last.y - q * now.y});
    }
    return last.divisor < 0 ? bezout{-last.divisor, -last.x, -last.y} : last;
}

std::int64_t rounded_quotient(std::int64_t a, std::int64_t b) {
    const std::int64_t twice = sum(product(2, a), b);
    const std::int64_t den = product(2, b);
    return twice / den - (twice % den < 0 ? 1 : 0);
}

}  // namespace

long_vector operator-(const long_vector& a) { return plus({}, -1, a); }

long_vector plus(const long_vector& a, std::int64_t n, const long_vector& b) {
    return {sum(a[0], product(n, b[0])), sum(a[1], product(n, b[1])), sum(a[2], product(n, b[2]))};
}

long_vector times(const int_matrix& m, const long_vector& v) {
    long_vector result{};
    for (std::size_t i = 0; i < 3; ++i) result[i] = dot({m[i][0], m[i][1], m[i][2]}, v);
    return result;
}

long_vector cross(const long_vector& a, const long_vector& b) {
    long_vector result{};
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t j = (i + 1) % 3, k = (i + 2) % 3;
        result[i] = sum(product(a[j], b[k]), negative(product(a[k], b[j])));
    }
    return result;
}

std::int64_t dot(const long_vector& a, const long_vector& b) {
    return sum(sum(product(a[0], b[0]), product(a[1], b[1])), product(a[2], b[2]));
}

std::int64_t determinant(const long_vector& a, const long_vector& b, const long_vector& c) {
    return dot(a, cross(b, c));
}

bool is_null(const long_vector& v) { return v == long_vector{}; }

long_vector primitive(const long_vector& v) {
    const std::int64_t common = std::gcd(std::gcd(v[0], v[1]), v[2]);
    if (common == 0) return v;
    return {v[0] / common, v[1] / common, v[2] / common};
}

int_matrix matrix_of_columns(const long_vector& a, const long_vector& b, const long_vector& c) {
    int_matrix result{};
    for (std::size_t i = 0; i < 3; ++i)
        result[i] = {narrowed(a[i]), narrowed(b[i]), narrowed(c[i])};
    return result;
}

bool is_whole(const fraction_matrix& m) {
    return is_integer(m[0]) && is_integer(m[1]) && is_integer(m[2]);
}

long_vector axis_of(const int_matrix& rotation) {
    std::array<long_vector, 3> rows{};
    for (std::size_t i = 0; i < 3; ++i) {
        rows[i] = {rotation[i][0], rotation[i][1], rotation[i][2]};
        --rows[i][i];
    }
    for (std::size_t i = 0; i < 3; ++i) {
        const long_vector axis = cross(rows[i], rows[(i + 1) % 3]);
        if (!is_null(axis)) return primitive(axis);
    }
    throw std::domain_error("a rotation has no axis");
}

long_vector plane_of(const int_matrix& rotation, int order) {
    // The sum of the powers takes every vector to its part along the axis, so its rows are
    // multiples of the normal.
    std::array<long_vector, 3> sums{};
    int_matrix power = unit_matrix;
    for (int k = 0; k < order; ++k) {
        power = power * rotation;
        for (std::size_t i = 0; i < 3; ++i) {
            sums[i] = plus(sums[i], 1, {power[i][0], power[i][1], power[i][2]});
        }
    }
    for (const long_vector& row : sums) {
        if (!is_null(row)) return primitive(row);
    }
    throw std::domain_error("a rotation has no plane");
}

std::array<long_vector, 2> basis_of_plane(const long_vector& n) {
    const bezout common = extended_gcd(n[0], n[1]);
    if (common.divisor == 0) return {{{1, 0, 0}, {0, 1, 0}}};
    return {{{n[1] / common.divisor, -n[0] / common.divisor, 0},
             {product(common.x, n[2]), product(common.y, n[2]), -common.divisor}}};
}

long_vector turned_basis(std::array<long_vector, 2> plane, const int_matrix& rotation) {
    // area(u, v), as a multiple of the area of the basis: along the plane's normal.
    const long_vector normal = cross(plane[0], plane[1]);
    std::size_t at = 0;
    while (normal[at] == 0) ++at;
    const auto area = [&](const long_vector& u, const long_vector& v) {
        return cross(u, v)[at] / normal[at];
    };
    // area(v, R v) is a quadratic form that R keeps, definite and with the value 1 or -1 at the
    // vectors wanted, which are its shortest: found by Gauss's reduction.
    long_vector u = plane[0], v = plane[1];
    const std::int64_t sign = area(u, times(rotation, u)) < 0 ? -1 : 1;
    const auto form = [&](const long_vector& x, const long_vector& y) {
        return sign * (area(x, times(rotation, y)) + area(y, times(rotation, x)));
    };
    for (;;) {
        v = plus(v, -rounded_quotient(form(u, v), form(u, u)), u);
        if (form(v, v) >= form(u, u)) break;
        std::swap(u, v);
    }
    if (form(u, u) != 2) throw std::domain_error("a rotation doesn't keep its plane's lattice");
    return u;
}

}  // namespace lomar
