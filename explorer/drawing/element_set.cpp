#include "drawing/element_set.h"

#include "drawing/element_gatherer.h"

namespace lomar {

namespace {

std::size_t cell_axis(int axis, std::size_t of_view) {
    return (static_cast<std::size_t>(axis) + 1 + of_view) % 3;
}

}  // namespace

int_vector to_view(const int_vector& v, int axis) {
    int_vector result;
    for (std::size_t i = 0; i < 3; ++i) result[i] = v[cell_axis(axis, i)];
    return result;
}

symop to_view(const symop& op, int axis) {
    symop result = op;
    for (std::size_t i = 0; i < 3; ++i) {
        result.rot[i] = to_view(op.rot[cell_axis(axis, i)], axis);
        result.trans[i] = op.trans[cell_axis(axis, i)];
    }
    return result;
}

std::vector<symop> to_view(std::span<const symop> operators, int axis) {
    std::vector<symop> result;
    for (const symop& op : operators) result.push_back(to_view(op, axis));
    return result;
}

element_set elements_of(std::span<const symop> operators, int axis) {
    constexpr std::size_t many = 60;
    element_gatherer gatherer(operators, axis);
    element_set whole = gatherer.take();
    if (whole.points.size() <= many || !gatherer.repeats_by_halves()) return whole;
    gatherer.draw_quarter();
    return gatherer.take();
}

}  // namespace lomar
