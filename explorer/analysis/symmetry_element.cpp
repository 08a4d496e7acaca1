#include "analysis/symmetry_element.h"

#include <array>
#include <numeric>
#include <optional>
#include <stdexcept>

namespace lomar {

namespace {

int_vector smallest_integers(const fraction_vector& v) {
    std::int64_t denominator = 1;
    for (const fraction& part : v) denominator = std::lcm(denominator, part.den());
    std::int64_t common = 0;
    for (const fraction& part : v) {
        common = std::gcd(common, (part * fraction(denominator)).num());
    }
    fraction_matrix scaled;
    for (std::size_t i = 0; i < 3; ++i) scaled[0][i] = v[i] * fraction(denominator, common);
    return to_integers(scaled)[0];
}

int_vector with_conventional_sign(int_vector axis) {
    const int_vector opposite = {-axis[0], -axis[1], -axis[2]};
    const int product = axis[0] * axis[1] * axis[2];
    const auto is_unit = [](int part) { return part == 1 || part == -1; };
    if (is_unit(axis[0]) && is_unit(axis[1]) && is_unit(axis[2])) {
        return product > 0 ? axis : opposite;
    }
    if (axis == int_vector{1, 0, -1}) return opposite;
    if (opposite == int_vector{1, 0, -1}) return axis;
    for (const int part : axis) {
        if (part != 0) return part > 0 ? axis : opposite;
    }
    return axis;
}

// The sum of the powers of a proper rotation projects onto its axis.
int_vector axis_of(const int_matrix& proper, int order) {
    int_matrix power = unit_matrix;
    fraction_matrix total;
    for (int n = 0; n < order; ++n) {
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t j = 0; j < 3; ++j) total[i][j] += fraction(power[i][j]);
        }
        power = power * proper;
    }
    for (std::size_t j = 0; j < 3; ++j) {
        const fraction_vector column = {total[0][j], total[1][j], total[2][j]};
        if (column != fraction_vector{}) return with_conventional_sign(smallest_integers(column));
    }
    return {};
}

int sense_of(const int_matrix& proper, const int_vector& axis) {
    for (std::size_t i = 0; i < 3; ++i) {
        int_vector off_axis{};
        off_axis[i] = 1;
        const int_matrix rows = {axis, off_axis, proper * off_axis};
        const fraction volume = determinant(to_fractions(rows));
        if (!volume.is_zero()) return volume.num() > 0 ? 1 : -1;
    }
    return 0;
}

fraction_vector intrinsic_part(const symop& op, int order) {
    fraction_vector total;
    for (int n = 0; n < order; ++n) total = op.rot * total + op.trans;
    for (fraction& part : total) part /= fraction(order);
    return total;
}

// W - 1 beside intrinsic - w, brought to reduced rows from the last column on, so that the free
// columns are the first that vary independently.
struct fixed_points {
    std::array<std::array<fraction, 4>, 3> rows;
    std::array<std::optional<std::size_t>, 3> row_of_pivot;  // by column; none: a parameter

    fixed_points(const symop& op, const fraction_vector& intrinsic) {
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t j = 0; j < 3; ++j) {
                rows[i][j] = fraction(op.rot[i][j]) - fraction(i == j ? 1 : 0);
            }
            rows[i][3] = intrinsic[i] - op.trans[i];
        }
        std::size_t done = 0;
        for (std::size_t column = 3; column-- > 0;) {
            std::size_t found = done;
            while (found < 3 && rows[found][column].is_zero()) ++found;
            if (found == 3) continue;
            std::swap(rows[found], rows[done]);
            clear_column(column, done);
            row_of_pivot[column] = done++;
        }
    }

    void clear_column(std::size_t column, std::size_t pivot_row) {
        const fraction pivot = rows[pivot_row][column];
        for (fraction& entry : rows[pivot_row]) entry /= pivot;
        for (std::size_t i = 0; i < 3; ++i) {
            const fraction factor = rows[i][column];
            if (i == pivot_row || factor.is_zero()) continue;
            for (std::size_t j = 0; j < 4; ++j) rows[i][j] -= factor * rows[pivot_row][j];
        }
    }

    fraction_vector point() const {
        fraction_vector result;
        for (std::size_t j = 0; j < 3; ++j) {
            if (row_of_pivot[j]) result[j] = rows[*row_of_pivot[j]][3];
        }
        return result;
    }

    int_vector direction(std::size_t parameter) const {
        fraction_vector result;
        result[parameter] = fraction(1);
        for (std::size_t j = 0; j < 3; ++j) {
            if (row_of_pivot[j]) result[j] = -rows[*row_of_pivot[j]][parameter];
        }
        return smallest_integers(result);
    }
};

int order_of_proper(const int_matrix& proper) {
    constexpr std::array order_by_trace = {2, 3, 4, 6, 1};  // -1 to 3
    return order_by_trace[static_cast<std::size_t>(trace(proper) + 1)];
}

void locate(symmetry_element& element, const symop& op) {
    const fixed_points fixed(op, element.intrinsic);
    element.point = fixed.point();
    for (std::size_t j = 0; j < 3; ++j) {
        if (!fixed.row_of_pivot[j]) element.directions.push_back(fixed.direction(j));
    }
    if (element.directions.size() == 1) element.directions[0] = element.axis;
}

// One coordinate of the location, in the letters of the parameters.
std::string coordinate_text(const symmetry_element& element, std::size_t coordinate,
                            const int_vector& letters) {
    symop line;
    line.rot[0] = {};
    line.trans = {element.point[coordinate], {}, {}};
    for (std::size_t n = 0; n < element.directions.size(); ++n) {
        line.rot[0][static_cast<std::size_t>(letters[n])] = element.directions[n][coordinate];
    }
    const std::string result = xyz_text(line);
    return result.substr(0, result.find(','));
}

// The place of the first coordinate that this direction moves and the others don't.
int parameter_of(const std::vector<int_vector>& directions, std::size_t which) {
    for (std::size_t i = 0; i < 3; ++i) {
        bool alone = directions[which][i] != 0;
        for (std::size_t n = 0; n < directions.size(); ++n) {
            if (n != which && directions[n][i] != 0) alone = false;
        }
        if (alone) return static_cast<int>(i);
    }
    return 0;
}

}  // namespace

symmetry_element element_of(const symop& op) {
    const int order = rotation_order(op.rot);
    if (order == 0) {
        throw std::domain_error(xyz_text(op) + " is no operator of a crystal: no power up to the " +
                                "sixth of its rotation is the identity");
    }
    const bool improper = determinant(op.rot) < 0;
    const int_matrix proper = improper ? negated(op.rot) : op.rot;
    const int proper_order = order_of_proper(proper);
    symmetry_element element;
    element.kind = improper ? -proper_order : proper_order;
    if (proper_order > 1) element.axis = axis_of(proper, proper_order);
    if (proper_order > 2) element.sense = sense_of(proper, element.axis);
    element.intrinsic = intrinsic_part(op, order);
    if (element.kind != 1) locate(element, op);
    return element;
}

std::string kind_text(int kind) { return kind == -2 ? "m" : std::to_string(kind); }

std::string axis_text(const int_vector& axis) {
    bool wide = false;
    for (const int part : axis) wide = wide || part > 9 || part < -9;
    std::string result;
    for (std::size_t i = 0; i < 3; ++i) {
        if (wide && i > 0) result += ',';
        result += std::to_string(axis[i]);
    }
    return result;
}

std::string location_text(const symmetry_element& element) {
    if (element.kind == 1) return {};
    int_vector letters{};
    for (std::size_t n = 0; n < element.directions.size(); ++n) {
        letters[n] = parameter_of(element.directions, n);
    }
    std::string result;
    for (std::size_t i = 0; i < 3; ++i) {
        if (i > 0) result += ',';
        result += coordinate_text(element, i, letters);
    }
    return result;
}

std::string seitz_text(const symop& op) { return seitz_text(op, element_of(op)); }

std::string seitz_text(const symop& op, const symmetry_element& element) {
    std::string result = "{ " + kind_text(element.kind);
    if (op.time < 0) result += '\'';
    if (element.sense != 0) result += element.sense > 0 ? '+' : '-';
    if (element.axis != int_vector{}) result += "_" + axis_text(element.axis);
    result += " |";
    for (const fraction& part : op.trans) result += " " + part.text();
    return result + " }";
}

}  // namespace lomar
