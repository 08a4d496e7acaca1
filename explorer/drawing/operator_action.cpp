#include "drawing/operator_action.h"

#include <numeric>

#include "analysis/symmetry_element.h"

namespace lomar {

namespace {

// The classes of elements are those of the integer vectors modulo the vectors (1 - W) k, which
// make a group of this exponent.
int spread_of(int kind) {
    switch (kind) {
        case 6:
            return 1;
        case 3:
            return 3;
        case -4:
            return 4;
        case -6:
            return 6;
        default:
            return 2;
    }
}

int_vector plane_of(const int_matrix& rot) {
    for (std::size_t i = 0; i < 3; ++i) {
        int_vector row = {-rot[i][0], -rot[i][1], -rot[i][2]};
        row[i] += 1;
        const int common = std::gcd(std::gcd(row[0], row[1]), row[2]);
        if (common == 0) continue;
        const int first = row[0] != 0 ? row[0] : row[1] != 0 ? row[1] : row[2];
        for (int& part : row) part /= first < 0 ? -common : common;
        return row;
    }
    return {};
}

void add(int_matrix& total, const int_matrix& m) {
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) total[i][j] += m[i][j];
    }
}

scaled_vector product(const int_matrix& m, const scaled_vector& v, int divisor) {
    scaled_vector result;
    for (std::size_t i = 0; i < 3; ++i) {
        result[i] = (m[i][0] * v[0] + m[i][1] * v[1] + m[i][2] * v[2]) / divisor;
    }
    return result;
}

}  // namespace

operator_action::operator_action(const int_matrix& rot) {
    const symmetry_element element = element_of({rot, {}});
    kind = element.kind;
    sense = element.sense;
    order = rotation_order(rot);
    spread = spread_of(kind);
    if (kind == -2) {
        plane = plane_of(rot);
    } else {
        axis = element.axis;
    }
    int_matrix power = unit_matrix;
    for (int n = 0; n < order; ++n) {
        add(partial, sum);
        add(sum, power);
        power = power * rot;
    }
}

scaled_vector operator_action::intrinsic(const scaled_vector& translation) const {
    return product(sum, translation, order);
}

scaled_vector operator_action::fixed_point(const scaled_vector& translation) const {
    scaled_vector rest = intrinsic(translation);
    for (std::size_t i = 0; i < 3; ++i) rest[i] = translation[i] - rest[i];
    return product(partial, rest, order);
}

}  // namespace lomar
