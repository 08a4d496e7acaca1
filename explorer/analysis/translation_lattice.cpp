#include "analysis/translation_lattice.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace lomar {

namespace {

fraction_vector scaled(const fraction_vector& v, const fraction& factor) {
    return {v[0] * factor, v[1] * factor, v[2] * factor};
}

fraction quotient_floor(const fraction& a, const fraction& b) { return fraction((a / b).floor()); }

double dot(const fraction_vector& a, const fraction_vector& b) {
    double total = 0;
    for (std::size_t i = 0; i < 3; ++i) total += a[i].to_double() * b[i].to_double();
    return total;
}

// Replaces each vector by its shortest difference with a multiple of another, until none gets
// shorter by more than rounding.
void shorten(std::array<fraction_vector, 3>& basis) {
    for (bool changed = true; changed;) {
        changed = false;
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t j = 0; j < 3; ++j) {
                if (i == j) continue;
                const double multiple =
                    std::round(dot(basis[i], basis[j]) / dot(basis[j], basis[j]));
                if (multiple == 0 || std::abs(multiple) > 1e15) continue;
                const fraction factor(static_cast<std::int64_t>(multiple));
                const fraction_vector less = basis[i] - scaled(basis[j], factor);
                if (dot(less, less) > dot(basis[i], basis[i]) * (1 - 1e-9)) continue;
                basis[i] = less;
                changed = true;
            }
        }
    }
}

}  // namespace

bool translation_lattice::contains(const fraction_vector& v) const {
    fraction_vector rest = v;
    for (std::size_t i = 0; i < 3; ++i) {
        if (rest[i].is_zero()) continue;
        const fraction multiple = rest[i] / echelon_[i][i];
        if (!multiple.is_integer()) return false;
        rest = rest - scaled(echelon_[i], multiple);
    }
    return true;
}

bool translation_lattice::add(const fraction_vector& v) {
    if (is_integer(v) || contains(v)) return false;
    fraction_vector rest = v;
    for (std::size_t i = 0; i < 3; ++i) {
        while (!rest[i].is_zero()) {
            const fraction multiple = quotient_floor(echelon_[i][i], rest[i]);
            echelon_[i] = echelon_[i] - scaled(rest, multiple);
            std::swap(echelon_[i], rest);
        }
        if (echelon_[i][i] < fraction(0)) echelon_[i] = scaled(echelon_[i], fraction(-1));
        // What is left over, and the vectors above, are brought below one unit of the next steps.
        rest = reduced(rest);
    }
    for (std::size_t i = 0; i < 2; ++i) {
        for (std::size_t j = i + 1; j < 3; ++j) {
            const fraction multiple = quotient_floor(echelon_[i][j], echelon_[j][j]);
            echelon_[i] = echelon_[i] - scaled(echelon_[j], multiple);
        }
    }
    return true;
}

fraction_vector translation_lattice::reduced(fraction_vector v) const {
    for (std::size_t i = 0; i < 3; ++i) {
        const fraction multiple = quotient_floor(v[i], echelon_[i][i]);
        if (!multiple.is_zero()) v = v - scaled(echelon_[i], multiple);
    }
    return v;
}

fraction_matrix translation_lattice::short_basis() const {
    std::array<fraction_vector, 3> basis = echelon_;
    shorten(basis);
    const fraction_matrix result = from_columns(basis[0], basis[1], basis[2]);
    if (determinant(result) > fraction(0)) return result;
    return from_columns(basis[0], basis[1], scaled(basis[2], fraction(-1)));
}

std::vector<fraction_vector> translation_lattice::in_cell(std::size_t most) const {
    // The echelon divides the cell into bricks: each index runs to the reciprocal of its diagonal.
    std::array<std::int64_t, 3> count{};
    double total = 1;
    for (std::size_t i = 0; i < 3; ++i) {
        count[i] = (fraction(1) / echelon_[i][i]).floor();
        total *= static_cast<double>(count[i]);
    }
    if (total > static_cast<double>(most)) {
        throw std::runtime_error("the cell holds too many lattice points");
    }
    std::vector<fraction_vector> result;
    for (std::int64_t i = 0; i < count[0]; ++i) {
        for (std::int64_t j = 0; j < count[1]; ++j) {
            for (std::int64_t k = 0; k < count[2]; ++k) {
                result.push_back(modulo_one(scaled(echelon_[0], fraction(i)) +
                                            scaled(echelon_[1], fraction(j)) +
                                            scaled(echelon_[2], fraction(k))));
            }
        }
    }
    std::sort(result.begin(), result.end());
    return result;
}

fraction_vector column(const fraction_matrix& m, std::size_t i) {
    return {m[0][i], m[1][i], m[2][i]};
}

fraction_matrix from_columns(const fraction_vector& a, const fraction_vector& b,
                             const fraction_vector& c) {
    return {{{a[0], b[0], c[0]}, {a[1], b[1], c[1]}, {a[2], b[2], c[2]}}};
}

}  // namespace lomar
