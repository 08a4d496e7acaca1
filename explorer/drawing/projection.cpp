#include "drawing/projection.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>

namespace lomar {

namespace {

using metric = std::array<std::array<double, 3>, 3>;

metric metric_of(const cell_parameters& cell) {
    metric g{};
    double volume = 1;
    double product = 2;
    for (std::size_t i = 0; i < 3; ++i) {
        const double cosine = std::cos(cell[3 + i] * std::numbers::pi / 180);
        if (!(cell[i] > 0) || !(cell[i] < 1e9))
            throw std::domain_error("a cell edge must be above 0");
        volume -= cosine * cosine;
        product *= cosine;
        const std::size_t j = (i + 1) % 3;
        const std::size_t k = (i + 2) % 3;
        g[i][i] = cell[i] * cell[i];
        g[j][k] = g[k][j] = cell[j] * cell[k] * cosine;
    }
    if (!(volume + product > 1e-6)) throw std::domain_error("the angles make no cell");
    return g;
}

metric mean_metric(std::span<const symop> operators, const metric& given) {
    metric sum{};
    for (const symop& op : operators) {
        for (std::size_t i = 0; i < 9; ++i) {
            for (std::size_t k = 0; k < 9; ++k) {
                sum[i / 3][i % 3] +=
                    op.rot[k / 3][i / 3] * given[k / 3][k % 3] * op.rot[k % 3][i % 3];
            }
        }
    }
    if (operators.empty()) return given;
    for (auto& row : sum) {
        for (double& part : row) part /= static_cast<double>(operators.size());
    }
    return sum;
}

}  // namespace

double length(page_vector v) { return std::hypot(v.x, v.y); }

page_vector unit(page_vector v) {
    const double size = length(v);
    return size > 0 ? (1 / size) * v : v;
}

cell_parameters fitting_cell(std::span<const symop> operators, const cell_parameters& cell) {
    const metric g = mean_metric(operators, metric_of(cell));
    cell_parameters result{};
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t j = (i + 1) % 3;
        const std::size_t k = (i + 2) % 3;
        result[i] = std::sqrt(g[i][i]);
        result[3 + i] = std::acos(g[j][k] / std::sqrt(g[j][j] * g[k][k])) * 180 / std::numbers::pi;
    }
    return result;
}

projection::projection(std::span<const symop> operators, int axis, const cell_parameters& cell,
                       double width, const drawn_part& part)
    : part_(part) {
    const metric g = mean_metric(operators, metric_of(cell));
    const std::size_t up = static_cast<std::size_t>(axis);
    const std::size_t i = (up + 1) % 3;
    const std::size_t j = (up + 2) % 3;
    const auto projected = [&](std::size_t a, std::size_t b) {
        return g[a][b] - g[a][up] * g[b][up] / g[up][up];
    };
    const double right_length = std::sqrt(projected(j, j));
    right_ = {right_length, 0};
    down_.x = projected(i, j) / right_length;
    down_.y = std::sqrt(projected(i, i) - down_.x * down_.x);
    inclined = {std::fabs(g[i][up]) > 1e-9, std::fabs(g[j][up]) > 1e-9};
    const page_vector seen_down = down();
    const double seen_width = right().x + std::fabs(seen_down.x);
    const double scale = width / std::max(seen_width, seen_down.y / 2);
    down_ = scale * down_;
    right_ = scale * right_;
}

}  // namespace lomar
