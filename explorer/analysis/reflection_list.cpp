#include "analysis/reflection_list.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <span>
#include <string>

#include "analysis/reflection_line.h"

namespace lomar {

namespace {

constexpr double slack = 1e-9;
constexpr double same_d = 2e-12;  // of 1/d^2, twice that of d
constexpr int largest_limit = 100'000;

[[noreturn]] void refuse_length() {
    throw too_many_reflections("more than " + std::to_string(most_reflections) +
                               " reflections: the list would be too long");
}

void add(std::vector<listed_reflection>& list, const listed_reflection& reflection) {
    if (list.size() >= most_reflections) refuse_length();
    list.push_back(reflection);
}

bool before(const listed_reflection& a, const listed_reflection& b) {
    return a.h != b.h ? a.h < b.h : a.k != b.k ? a.k < b.k : a.l < b.l;
}

void sort_by_falling_d(std::vector<listed_reflection>& list) {
    std::sort(list.begin(), list.end(),
              [](const auto& a, const auto& b) { return a.inverse_square < b.inverse_square; });
    for (auto first = list.begin(); first != list.end();) {
        const double limit = first->inverse_square * (1 + same_d);
        auto last = first + 1;
        while (last != list.end() && last->inverse_square <= limit) ++last;
        if (last - first > 1) std::sort(first, last, before);
        first = last;
    }
}

// The ellipsoid h g h <= most in the space of the indices.
class index_ellipsoid {
public:
    index_ellipsoid(const metric_matrix& g, double most) : g_(g), most_(most) {}

    double inverse_square(double h, double k, double l) const {
        return h * h * g_[0][0] + k * k * g_[1][1] + l * l * g_[2][2] +
               2 * (h * k * g_[0][1] + h * l * g_[0][2] + k * l * g_[1][2]);
    }
    /// Where a line of l enters and leaves, with a little room; nothing where it passes by.
    bool range_of_l(int h, int k, double& first, double& last) const {
        const double half = h * g_[0][2] + k * g_[1][2];
        return solve(g_[2][2], half, inverse_square(h, k, 0) - most_, first, last);
    }
    /// Likewise of k for an h, whatever l is.
    bool range_of_k(int h, double& first, double& last) const {
        const double kk = g_[1][1] - g_[1][2] * g_[1][2] / g_[2][2];
        const double hk = g_[0][1] - g_[0][2] * g_[1][2] / g_[2][2];
        const double hh = g_[0][0] - g_[0][2] * g_[0][2] / g_[2][2];
        return solve(kk, h * hk, h * hh * h - most_, first, last);
    }

private:
    // a x^2 + 2 half x + rest <= 0
    static bool solve(double a, double half, double rest, double& first, double& last) {
        const double root = half * half - a * rest;
        const double room = 1e-6 * (1 + half * half);
        if (root < -room) return false;
        const double reach = std::sqrt(std::max(root, 0.0)) / a;
        first = std::ceil(-half / a - reach - 1e-3);
        last = std::floor(-half / a + reach + 1e-3);
        return true;
    }

    metric_matrix g_;
    double most_;
};

// Refuses a list that would be too long, or whose lines would take too long to walk. Gives about as
// much room as it needs.
std::size_t room_for(double n_points, double n_lines, double n_points_a_row) {
    constexpr double most_lines = 3e7;
    const double n_rows = n_points / n_points_a_row;
    if (!(n_rows <= 1.5 * most_reflections) || !(n_lines <= most_lines)) refuse_length();
    return std::min(most_reflections, static_cast<std::size_t>(1.1 * n_rows) + 100);
}

std::size_t room_for_sphere(const unit_cell& cell, double d_min, double n_points_a_row) {
    constexpr double radian = std::numbers::pi / 180;
    const double sphere = 4 * std::numbers::pi / 3 * volume_of(cell) / std::pow(d_min, 3);
    const double disc =
        std::numbers::pi * cell.a * cell.b * std::sin(cell.gamma * radian) / (d_min * d_min);
    return room_for(sphere, std::max({disc, cell.a / d_min, cell.b / d_min, cell.c / d_min}),
                    n_points_a_row);
}

// How many reflections make one row, if it is general: the equivalent ones, and those that the
// centring forbids unless they are listed.
double points_a_row(const reflection_lines& lines, const space_group& group, bool absent) {
    return static_cast<double>(lines.n_equivalent() * (absent ? 1 : group.centring.size()));
}

}  // namespace

double listed_reflection::d() const {
    return inverse_square > 0 ? 1 / std::sqrt(inverse_square) : 0;
}

std::optional<double> listed_reflection::two_theta(double wavelength) const {
    const double sine = wavelength * std::sqrt(inverse_square) / 2;
    if (inverse_square <= 0 || sine > 1 + 1e-12) return std::nullopt;
    return 2 * std::asin(std::min(sine, 1.0)) * 180 / std::numbers::pi;
}

std::vector<listed_reflection> reflections_within(
    const space_group& group, const std::vector<reflection_condition>& conditions,
    const int_vector& limits, bool absent) {
    for (const int limit : limits) {
        if (limit > largest_limit) {
            throw too_many_reflections("a limit of " + std::to_string(limit) + " is too large");
        }
    }
    reflection_lines lines(group, conditions);
    std::vector<listed_reflection> list;
    const int_vector reach = lines.reach_of(limits);
    const double n_points = (2.0 * limits[0] + 1) * (2.0 * limits[1] + 1) * (2.0 * limits[2] + 1);
    list.reserve(room_for(n_points, (1.0 + reach[0]) * (2.0 * reach[1] + 1),
                          points_a_row(lines, group, absent)));
    for (int h = 0; h <= reach[0]; ++h) {
        for (int k = -reach[1]; k <= reach[1]; ++k) {
            lines.walk(h, k, -reach[2], reach[2], absent, [&](listed_reflection reflection) {
                if (lines.meets(reflection, limits)) add(list, reflection);
            });
        }
    }
    return list;
}

std::vector<listed_reflection> reflections_down_to(
    const space_group& group, const std::vector<reflection_condition>& conditions,
    const unit_cell& cell, double d_min, bool absent) {
    if (!(d_min > 0)) throw std::invalid_argument("d-min must be above 0");
    const double least_d = d_min * (1 - slack);
    const double most = 1 / (least_d * least_d);
    reflection_lines lines(group, conditions);
    const index_ellipsoid inside(reciprocal_metric(cell), most);
    std::vector<listed_reflection> list;
    list.reserve(room_for_sphere(cell, d_min, points_a_row(lines, group, absent)));
    const int h_max = static_cast<int>(std::floor(cell.a / least_d + 1e-3));
    for (int h = 0; h <= h_max; ++h) {
        double first_k = 0, last_k = 0, first_l = 0, last_l = 0;
        if (!inside.range_of_k(h, first_k, last_k)) continue;
        for (int k = static_cast<int>(first_k); k <= static_cast<int>(last_k); ++k) {
            if (!inside.range_of_l(h, k, first_l, last_l)) continue;
            lines.walk(h, k, static_cast<int>(first_l), static_cast<int>(last_l), absent,
                       [&](listed_reflection reflection) {
                           reflection.inverse_square = inside.inverse_square(h, k, reflection.l);
                           if (reflection.inverse_square <= most) add(list, reflection);
                       });
        }
    }
    sort_by_falling_d(list);
    return list;
}

}  // namespace lomar
