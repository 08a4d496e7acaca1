#include "analysis/cell.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fmt/core.h>
#include <numbers>
#include <optional>
#include <vector>

namespace lomar {

namespace {

constexpr double least_length = 1e-6;
constexpr double most_length = 1e6;
constexpr double length_slack = 1e-3;
constexpr double angle_slack = 0.1;
constexpr double fits_exactly = 1e-9;
constexpr double rounding = 1e-12;  // 10.01 is 0.1 % off 10

double cosine(double degrees) {
    if (degrees == 90) return 0;
    if (degrees == 120) return -0.5;
    if (degrees == 60) return 0.5;
    return std::cos(degrees * std::numbers::pi / 180);
}

std::array<double, 3> lengths_of(const unit_cell& cell) { return {cell.a, cell.b, cell.c}; }
std::array<double, 3> angles_of(const unit_cell& cell) {
    return {cell.alpha, cell.beta, cell.gamma};
}

unit_cell cell_of(const std::array<double, 3>& lengths, const std::array<double, 3>& angles) {
    return {lengths[0], lengths[1], lengths[2], angles[0], angles[1], angles[2]};
}

unit_cell cell_of(const metric_matrix& g) {
    std::array<double, 3> lengths{}, angles{};
    for (std::size_t i = 0; i < 3; ++i) lengths[i] = std::sqrt(g[i][i]);
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t j = (i + 1) % 3, k = (i + 2) % 3;
        angles[i] = std::acos(g[j][k] / (lengths[j] * lengths[k])) * 180 / std::numbers::pi;
    }
    return cell_of(lengths, angles);
}

double determinant_of(const metric_matrix& g) {
    return g[0][0] * (g[1][1] * g[2][2] - g[1][2] * g[2][1]) -
           g[0][1] * (g[1][0] * g[2][2] - g[1][2] * g[2][0]) +
           g[0][2] * (g[1][0] * g[2][1] - g[1][1] * g[2][0]);
}

template <typename Number>
using square = std::array<std::array<Number, 3>, 3>;

// The sum of the images of a metric under the group: W^T g W.
template <typename Number>
square<Number> summed(const space_group& group, const square<Number>& g) {
    square<Number> sum{};
    for (const symop& op : group.representatives()) {
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t j = 0; j < 3; ++j) {
                for (std::size_t m = 0; m < 3; ++m) {
                    for (std::size_t n = 0; n < 3; ++n) {
                        sum[i][j] += Number(op.rot[m][i]) * g[m][n] * Number(op.rot[n][j]);
                    }
                }
            }
        }
    }
    return sum;
}

// What a group demands of lengths and angles, each by itself.
struct cell_constraints {
    std::array<std::size_t, 3> same_length = {0, 1, 2};  // the first of those that are equal
    std::array<std::size_t, 3> same_angle = {0, 1, 2};   // likewise
    std::array<std::optional<double>, 3> fixed_angle{};
};

using whole_metric = square<std::int64_t>;

// The cosine is 0, or half of 1 or -1 between equal edges, in this metric.
std::optional<double> special_angle(const whole_metric& g, std::size_t which) {
    const std::size_t j = (which + 1) % 3, k = (which + 2) % 3;
    if (g[j][k] == 0) return 90;
    if (g[j][j] != g[k][k]) return std::nullopt;
    if (2 * g[j][k] == -g[j][j]) return 120;
    if (2 * g[j][k] == g[j][j]) return 60;
    return std::nullopt;
}

bool equal_angles(const whole_metric& g, std::size_t first, std::size_t second) {
    const auto product = [&](std::size_t i) { return g[(i + 1) % 3][(i + 2) % 3]; };
    return product(first) == product(second) && g[first][first] == g[second][second];
}

// What holds for the images of metrics without any symmetry holds for all metrics of the group.
cell_constraints constraints_of(const space_group& group) {
    const whole_metric samples[] = {
        summed(group, whole_metric{{{1009, 101, 53}, {101, 1301, 211}, {53, 211, 1699}}}),
        summed(group, whole_metric{{{907, -67, 149}, {-67, 1499, 31}, {149, 31, 1151}}})};
    const auto always = [&](auto&& holds) { return holds(samples[0]) && holds(samples[1]); };
    cell_constraints result;
    for (std::size_t i = 0; i < 3; ++i) {
        const auto angle = special_angle(samples[0], i);
        if (angle == special_angle(samples[1], i)) result.fixed_angle[i] = angle;
        for (std::size_t j = i; j-- > 0;) {
            if (always([&](const whole_metric& g) { return g[i][i] == g[j][j]; })) {
                result.same_length[i] = j;
            }
            if (always([&](const whole_metric& g) { return equal_angles(g, i, j); })) {
                result.same_angle[i] = j;
            }
        }
    }
    return result;
}

constexpr const char* length_names[] = {"a", "b", "c"};
constexpr const char* angle_names[] = {"alpha", "beta", "gamma"};

double mean_of_same(const std::array<double, 3>& values, const std::array<std::size_t, 3>& same,
                    std::size_t which) {
    double sum = 0;
    int n = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        if (same[i] != same[which]) continue;
        sum += values[i];
        ++n;
    }
    return sum / n;
}

unit_cell constrained(const unit_cell& cell, const cell_constraints& constraints) {
    const auto lengths = lengths_of(cell);
    const auto angles = angles_of(cell);
    std::array<double, 3> new_lengths{}, new_angles{};
    for (std::size_t i = 0; i < 3; ++i) {
        new_lengths[i] = mean_of_same(lengths, constraints.same_length, i);
        new_angles[i] =
            constraints.fixed_angle[i].value_or(mean_of_same(angles, constraints.same_angle, i));
    }
    return cell_of(new_lengths, new_angles);
}

// The first constraint that a cell breaks: `a = b is broken by 10 and 12`.
std::string broken_constraint(const unit_cell& cell, const cell_constraints& constraints) {
    const auto lengths = lengths_of(cell);
    const auto angles = angles_of(cell);
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t j = constraints.same_length[i];
        const double slack = (length_slack + rounding) * std::max(lengths[i], lengths[j]);
        if (std::abs(lengths[i] - lengths[j]) > slack) {
            return fmt::format("{} = {} is broken by {:.10g} and {:.10g}", length_names[j],
                               length_names[i], lengths[j], lengths[i]);
        }
    }
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t j = constraints.same_angle[i];
        const auto& fixed = constraints.fixed_angle[i];
        if (fixed && std::abs(angles[i] - *fixed) > angle_slack + fits_exactly) {
            return fmt::format("{} = {:g} is broken by {:.10g}", angle_names[i], *fixed, angles[i]);
        }
        if (!fixed && std::abs(angles[i] - angles[j]) > angle_slack + fits_exactly) {
            return fmt::format("{} = {} is broken by {:.10g} and {:.10g}", angle_names[j],
                               angle_names[i], angles[j], angles[i]);
        }
    }
    return {};
}

bool close_to(const unit_cell& cell, const unit_cell& other, double length, double angle) {
    for (std::size_t i = 0; i < 3; ++i) {
        const double x = lengths_of(cell)[i], y = lengths_of(other)[i];
        if (std::abs(x - y) > length * y) return false;
        if (std::abs(angles_of(cell)[i] - angles_of(other)[i]) > angle) return false;
    }
    return true;
}

unit_cell symmetrical(const space_group& group, const unit_cell& cell) {
    metric_matrix g = summed(group, metric_of(cell));
    for (auto& row : g) {
        for (double& entry : row) entry /= static_cast<double>(group.primitive_order());
    }
    return cell_of(g);
}

}  // namespace

metric_matrix metric_of(const unit_cell& cell) {
    const auto lengths = lengths_of(cell);
    const auto angles = angles_of(cell);
    for (std::size_t i = 0; i < 3; ++i) {
        if (!(lengths[i] >= least_length && lengths[i] <= most_length)) {
            throw cell_error(
                fmt::format("{} = {:.10g} is no length of a cell", length_names[i], lengths[i]));
        }
        if (!(angles[i] > 0 && angles[i] < 180)) {
            throw cell_error(
                fmt::format("{} = {:.10g} is no angle of a cell", angle_names[i], angles[i]));
        }
    }
    metric_matrix g{};
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t j = (i + 1) % 3, k = (i + 2) % 3;
        g[i][i] = lengths[i] * lengths[i];
        g[j][k] = g[k][j] = lengths[j] * lengths[k] * cosine(angles[i]);
    }
    const double flat = 1e-9 * g[0][0] * g[1][1] * g[2][2];
    if (!(determinant_of(g) > flat)) {
        throw cell_error(fmt::format("no cell has the angles {:.10g}, {:.10g} and {:.10g}",
                                     angles[0], angles[1], angles[2]));
    }
    return g;
}

double volume_of(const unit_cell& cell) { return std::sqrt(determinant_of(metric_of(cell))); }

metric_matrix reciprocal_metric(const unit_cell& cell) {
    const metric_matrix g = metric_of(cell);
    const double det = determinant_of(g);
    metric_matrix result{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            const std::size_t r1 = (j + 1) % 3, r2 = (j + 2) % 3;
            const std::size_t c1 = (i + 1) % 3, c2 = (i + 2) % 3;
            result[i][j] = (g[r1][c1] * g[r2][c2] - g[r1][c2] * g[r2][c1]) / det;
        }
    }
    return result;
}

std::string cell_text(const unit_cell& cell) {
    return fmt::format("{:.8g} {:.8g} {:.8g} {:.8g} {:.8g} {:.8g}", cell.a, cell.b, cell.c,
                       cell.alpha, cell.beta, cell.gamma);
}

unit_cell fitting_cell(const space_group& group, const unit_cell& cell) {
    metric_of(cell);
    const cell_constraints constraints = constraints_of(group);
    unit_cell fitting = constrained(cell, constraints);
    std::string broken = broken_constraint(cell, constraints);
    // In odd axes constraints may join lengths and angles.
    bool possible = true;
    try {
        const unit_cell mean = symmetrical(group, fitting);
        if (!close_to(fitting, mean, fits_exactly, fits_exactly)) fitting = mean;
    } catch (const cell_error&) {
        possible = false;
    }
    if (broken.empty() && !close_to(cell, fitting, length_slack, angle_slack)) {
        broken = "its lengths and angles don't agree with the operators";
    }
    if (!broken.empty()) {
        throw cell_error("the cell contradicts " + group.name + ": " + broken +
                         (possible ? "; this fits: " + cell_text(fitting) : ""));
    }
    return close_to(cell, fitting, fits_exactly, fits_exactly) ? cell : fitting;
}

}  // namespace lomar
