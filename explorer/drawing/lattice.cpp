#include "drawing/lattice.h"

#include <algorithm>
#include <numeric>
#include <stdexcept>

#include "analysis/symmetry_element.h"

namespace lomar {

namespace {

constexpr std::int64_t max_denominator = 1'000'000'000;

std::int64_t common_multiple(std::int64_t a, std::int64_t b) {
    const std::int64_t factor = b / std::gcd(a, b);
    if (factor > max_denominator / a) {
        throw std::overflow_error("the fractions of the operators are too fine to draw");
    }
    return a * factor;
}

void check_entries(const int_matrix& rot) {
    for (const auto& row : rot) {
        for (const int entry : row) {
            if (entry > 1000 || entry < -1000) {
                throw std::domain_error("the axes are too oblique to draw");
            }
        }
    }
}

scaled_vector times(std::int64_t length, const int_vector& direction) {
    return {length * direction[0], length * direction[1], length * direction[2]};
}

}  // namespace

lattice::lattice(std::span<const symop> operators) {
    std::int64_t denominator = 1;
    std::vector<int_matrix> seen;
    for (const symop& op : operators) {
        for (const fraction& part : op.trans)
            denominator = common_multiple(denominator, part.den());
        if (std::find(seen.begin(), seen.end(), op.rot) != seen.end()) continue;
        seen.push_back(op.rot);
        check_entries(op.rot);
        for (const int part : element_of({op.rot, {}}).axis) {
            if (part != 0) denominator = common_multiple(denominator, std::abs(part));
        }
    }
    unit_ = 144 * denominator;
    for (const symop& op : operators) {
        if (op.rot != unit_matrix) continue;
        scaled_vector v = scaled(op.trans);
        for (std::int64_t& part : v) part = modulo_one(part);
        (op.time > 0 ? translations_ : antitranslations).push_back(v);
    }
    grey = is_among(antitranslations, {});
    if (!is_among(translations_, {})) translations_.push_back({});
}

scaled_vector lattice::scaled(const fraction_vector& v) const {
    scaled_vector result;
    for (std::size_t i = 0; i < 3; ++i) result[i] = (v[i] * fraction(unit_)).num();
    return result;
}

std::int64_t lattice::modulo_one(std::int64_t parts) const {
    const std::int64_t rest = parts % unit_;
    return rest < 0 ? rest + unit_ : rest;
}

bool lattice::is_among(const std::vector<scaled_vector>& list, const scaled_vector& v) const {
    const scaled_vector reduced = {modulo_one(v[0]), modulo_one(v[1]), modulo_one(v[2])};
    return std::find(list.begin(), list.end(), reduced) != list.end();
}

bool lattice::has_over(const std::array<std::int64_t, 2>& place) const {
    return std::any_of(translations_.begin(), translations_.end(), [&](const scaled_vector& v) {
        return modulo_one(v[0] - place[0]) == 0 && modulo_one(v[1] - place[1]) == 0;
    });
}

std::optional<fraction> lattice::upward_antitranslation() const {
    std::optional<fraction> least;
    for (const scaled_vector& v : antitranslations) {
        if (v[0] != 0 || v[1] != 0) continue;
        if (!least || exact(v[2]) < *least) least = exact(v[2]);
    }
    return least;
}

std::int64_t lattice::period(const int_vector& direction) const {
    for (auto n = static_cast<std::int64_t>(translations_.size()); n > 1; --n) {
        if (unit_ % n == 0 && contains(times(unit_ / n, direction))) return unit_ / n;
    }
    return unit_;
}

bool lattice::is_doubled_along(const int_vector& direction) const {
    return grey || is_among(antitranslations, times(period(direction) / 2, direction));
}

std::vector<scaled_vector> lattice::vectors_in_plane(const int_vector& covector) const {
    std::vector<scaled_vector> result;
    for (const scaled_vector& v : translations_) {
        for (int i = 0; i < 343; ++i) {
            const scaled_vector sum = {v[0] + unit_ * (i / 49 - 3), v[1] + unit_ * (i / 7 % 7 - 3),
                                       v[2] + unit_ * (i % 7 - 3)};
            if (covector[0] * sum[0] + covector[1] * sum[1] + covector[2] * sum[2] == 0) {
                result.push_back(sum);
            }
        }
    }
    return result;
}

}  // namespace lomar
