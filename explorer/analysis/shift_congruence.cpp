#include "analysis/shift_congruence.h"

#include <cstdlib>
#include <utility>

namespace lomar {

namespace {

fraction_vector minus(const fraction_vector& a, const fraction_vector& b, const fraction& factor) {
    if (factor.is_zero()) return a;
    return {a[0] - b[0] * factor, a[1] - b[1] * factor, a[2] - b[2] * factor};
}

}  // namespace

shift_congruence::shift_congruence(const std::vector<int_matrix>& rotations) {
    std::vector<whole_row> rows;
    for (const int_matrix& rot : rotations) {
        for (std::size_t i = 0; i < 3; ++i) {
            whole_row row{rot[i][0], rot[i][1], rot[i][2]};
            --row[i];
            rows.push_back(row);
        }
    }
    left_.assign(rows.size(), std::vector<std::int64_t>(rows.size(), 0));
    for (std::size_t i = 0; i < rows.size(); ++i) left_[i][i] = 1;
    for (std::size_t i = 0; i < 3; ++i) right_[i][i] = 1;
    diagonalise(rows);
    for (std::size_t k = 0; k < 3; ++k) {
        const fraction_vector direction = {right_[0][k], right_[1][k], right_[2][k]};
        if (diagonal_[k] == 0) {
            free_.push_back(direction);
        } else {
            const fraction part(1, diagonal_[k]);
            periods_.push_back({direction[0] * part, direction[1] * part, direction[2] * part});
        }
    }
}

void shift_congruence::diagonalise(std::vector<whole_row>& rows) {
    for (std::size_t k = 0; k < 3 && k < rows.size(); ++k) {
        // The smallest entry that is left becomes the pivot.
        std::size_t at_row = k, at_column = k;
        std::int64_t smallest = 0;
        for (std::size_t i = k; i < rows.size(); ++i) {
            for (std::size_t j = k; j < 3; ++j) {
                const std::int64_t size = std::abs(rows[i][j]);
                if (size == 0 || (smallest != 0 && size >= smallest)) continue;
                smallest = size;
                at_row = i;
                at_column = j;
            }
        }
        if (smallest == 0) return;
        std::swap(rows[k], rows[at_row]);
        std::swap(left_[k], left_[at_row]);
        for (whole_row& row : rows) std::swap(row[k], row[at_column]);
        for (auto& row : right_) std::swap(row[k], row[at_column]);
        while (!clear_column(rows, k) || !clear_row(rows, k)) {}
        diagonal_[k] = rows[k][k];
    }
}

// Takes multiples of row k from the others; false when a remainder became the pivot, or row k is
// still to be cleared.
bool shift_congruence::clear_column(std::vector<whole_row>& rows, std::size_t k) {
    for (std::size_t i = k + 1; i < rows.size(); ++i) {
        while (rows[i][k] != 0) {
            const std::int64_t multiple = rows[i][k] / rows[k][k];
            for (std::size_t j = 0; j < 3; ++j) rows[i][j] -= multiple * rows[k][j];
            for (std::size_t j = 0; j < left_.size(); ++j) {
                left_[i][j] -= multiple * left_[k][j];
            }
            if (rows[i][k] == 0) break;
            std::swap(rows[i], rows[k]);
            std::swap(left_[i], left_[k]);
        }
    }
    return true;
}

bool shift_congruence::clear_row(std::vector<whole_row>& rows, std::size_t k) {
    for (std::size_t j = k + 1; j < 3; ++j) {
        const std::int64_t multiple = rows[k][j] / rows[k][k];
        for (whole_row& row : rows) row[j] -= multiple * row[k];
        for (auto& row : right_) row[j] -= multiple * row[k];
        if (rows[k][j] == 0) continue;
        for (whole_row& row : rows) std::swap(row[j], row[k]);
        for (auto& row : right_) std::swap(row[j], row[k]);
        return false;
    }
    return true;
}

std::optional<fraction_vector> shift_congruence::solve(
    const std::vector<fraction_vector>& b) const {
    fraction_vector steps;
    for (std::size_t i = 0; i < left_.size(); ++i) {
        fraction sum;
        for (std::size_t j = 0; j < left_.size(); ++j) {
            if (left_[i][j] != 0) sum += fraction(left_[i][j]) * b[j / 3][j % 3];
        }
        if (i < 3 && diagonal_[i] != 0) {
            steps[i] = sum / fraction(diagonal_[i]);
        } else if (!sum.is_integer()) {
            return std::nullopt;
        }
    }
    fraction_vector result;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t k = 0; k < 3; ++k) result[i] += fraction(right_[i][k]) * steps[k];
    }
    return result;
}

fraction_vector smallest_point(fraction_vector p, std::vector<fraction_vector> periods,
                               std::vector<fraction_vector> free_directions) {
    for (std::size_t i = 0; i < 3; ++i) {
        std::size_t f = 0;
        while (f < free_directions.size() && free_directions[f][i].is_zero()) ++f;
        if (f < free_directions.size()) {
            const fraction_vector direction = free_directions[f];
            free_directions.erase(free_directions.begin() + static_cast<std::ptrdiff_t>(f));
            p = minus(p, direction, p[i] / direction[i]);
            for (fraction_vector& v : free_directions) v = minus(v, direction, v[i] / direction[i]);
            for (fraction_vector& v : periods) v = minus(v, direction, v[i] / direction[i]);
            continue;
        }
        // The periods' greatest common divisor along this coordinate, in the last of them.
        std::size_t last = 0;
        for (std::size_t j = 1; j < periods.size(); ++j) {
            while (!periods[j][i].is_zero()) {
                if (!periods[last][i].is_zero()) {
                    const fraction multiple((periods[last][i] / periods[j][i]).floor());
                    periods[last] = minus(periods[last], periods[j], multiple);
                }
                std::swap(periods[last], periods[j]);
            }
        }
        fraction_vector step = periods[last];
        periods.erase(periods.begin() + static_cast<std::ptrdiff_t>(last));
        if (step[i] < fraction(0)) step = minus({}, step, fraction(1));
        p = minus(p, step, fraction((p[i] / step[i]).floor()));
    }
    return p;
}

}  // namespace lomar
