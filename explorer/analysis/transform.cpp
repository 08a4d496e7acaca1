#include "analysis/transform.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <stdexcept>

#include "analysis/identify.h"
#include "group/generated_group.h"

namespace lomar {

namespace {

void check_axes(const space_group& group, const basis_change& change) {
    for (std::size_t j = 0; j < 3; ++j) {
        const fraction_vector edge = modulo_one(column(change.matrix, j));
        if (std::find(group.centring.begin(), group.centring.end(), edge) != group.centring.end())
            continue;
        throw std::domain_error(std::string("the new axis ") + "abc"[j] +
                                " is no lattice translation of " + group.name);
    }
    const fraction_matrix back = inverse(change.matrix);
    for (const symop& op : group.representatives()) {
        const fraction_matrix rot = back * to_fractions(op.rot) * change.matrix;
        for (const auto& row : rot) {
            if (std::all_of(row.begin(), row.end(),
                            [](const fraction& f) { return f.is_integer(); }))
                continue;
            throw std::domain_error("the new axes lose " + xyz_text(op) + " of " + group.name);
        }
    }
}

// The tables spell an axis (V) as x' = V x.
std::string coordinates_text(const basis_change& change) {
    const basis_change back = inverse(change);
    std::string result;
    for (std::size_t i = 0; i < 3; ++i) {
        std::string row;
        for (std::size_t j = 0; j < 3; ++j) {
            const fraction& part = back.matrix[i][j];
            if (part.is_zero()) continue;
            if (part.num() > 0 && !row.empty()) row += '+';
            if (part == fraction(-1)) {
                row += '-';
            } else if (part != fraction(1)) {
                row += part.text() + "*";
            }
            row += "xyz"[j];
        }
        const fraction& shift = back.origin[i];
        if (shift.num() > 0) row += '+';
        if (!shift.is_zero()) row += shift.text();
        result += (i > 0 ? "," : "") + row;
    }
    return result;
}

// A Hall symbol without its own change of axes, and the change from its axes to the row's.
struct plain_hall {
    std::string symbol;
    basis_change to_row;
};

plain_hall plain_hall_of(const setting& row) {
    const std::size_t bracket = row.hall.find(" (");
    plain_hall result{std::string(row.hall.substr(0, bracket)), {}};
    if (bracket == std::string_view::npos) return result;
    // The table's own changes are shifts in twelfths: `(0 0 4)`.
    const std::string_view shift = row.hall.substr(bracket + 2);
    result.to_row.origin = parse_point(shift.substr(0, shift.find(')')));
    for (fraction& part : result.to_row.origin) part /= fraction(-12);
    return result;
}

std::string hall_of(const setting& base, const basis_change& from_base) {
    const plain_hall hall = plain_hall_of(base);
    return hall.symbol + " (" + coordinates_text(hall.to_row * from_base) + ")";
}

}  // namespace

space_group in_other_axes(const space_group& group, const basis_change& change) {
    if (determinant(change.matrix) <= 0) {
        throw std::domain_error("the new axes are left-handed: their determinant is below 0");
    }
    check_axes(group, change);
    const auto representatives = group.representatives();
    const operator_list list =
        lomar::generate({representatives.begin(), representatives.end()}, group.centring, change);
    const identification found = identify(list.operators);
    if (found.match == match_kind::exact) return group_of(*found.row);
    space_group result;
    result.row = &standard_setting(group.row->number);
    result.tabulated = false;
    result.hall = group.tabulated ? hall_of(*group.row, change)
                                  : hall_of(*result.row, inverse(group.to_standard) * change);
    result.name = "hall:" + result.hall;
    result.to_standard = inverse(change) * group.to_standard;
    result.lattice = lattice_letter(list.centring);
    result.centring = list.centring;
    result.operators = list.operators;
    return result;
}

basis_change change_between(const space_group& from, const space_group& to) {
    if (from.row->number != to.row->number) {
        throw std::domain_error(from.name + " is a setting of number " +
                                std::to_string(from.row->number) + ", " + to.name + " of " +
                                std::to_string(to.row->number));
    }
    return from.to_standard * inverse(to.to_standard);
}

namespace {

using real_matrix = std::array<std::array<double, 3>, 3>;

constexpr double degree = std::numbers::pi / 180;

real_matrix metric_of(const cell_lengths& cell) {
    real_matrix metric{};
    for (std::size_t i = 0; i < 3; ++i) {
        metric[i][i] = cell[i] * cell[i];
        const std::size_t j = (i + 1) % 3, k = (i + 2) % 3;
        // A right angle is exact.
        const double angle = cell[3 + i];
        const double cosine = angle == 90 ? 0 : std::cos(angle * degree);
        metric[j][k] = metric[k][j] = cell[j] * cell[k] * cosine;
    }
    return metric;
}

double determinant(const real_matrix& m) {
    return m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
           m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
           m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
}

}  // namespace

cell_lengths transformed_cell(const cell_lengths& cell, const fraction_matrix& matrix) {
    const real_matrix old = metric_of(cell);
    real_matrix metric{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            for (std::size_t k = 0; k < 3; ++k) {
                for (std::size_t l = 0; l < 3; ++l) {
                    metric[i][j] += matrix[k][i].to_double() * old[k][l] * matrix[l][j].to_double();
                }
            }
        }
    }
    cell_lengths result{};
    for (std::size_t i = 0; i < 3; ++i) result[i] = std::sqrt(metric[i][i]);
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t j = (i + 1) % 3, k = (i + 2) % 3;
        const double cosine = metric[j][k] / (result[j] * result[k]);
        result[3 + i] = std::acos(std::clamp(cosine, -1.0, 1.0)) / degree;
    }
    return result;
}

void check_cell(const cell_lengths& cell) {
    for (std::size_t i = 0; i < 3; ++i) {
        if (!(cell[i] > 0) || !(cell[i] < 1e6)) {
            throw std::domain_error("a cell length is not above 0 and below 1000000");
        }
        if (!(cell[3 + i] > 0) || !(cell[3 + i] < 180)) {
            throw std::domain_error("a cell angle is not between 0 and 180 degrees");
        }
    }
    const double volume = cell_volume(cell);
    if (!(volume > 1e-6 * cell[0] * cell[1] * cell[2])) {
        throw std::domain_error("the cell angles make no cell");
    }
}

double cell_volume(const cell_lengths& cell) {
    return std::sqrt(std::max(0.0, determinant(metric_of(cell))));
}

std::array<double, 3> reciprocal_lengths(const cell_lengths& cell) {
    const double volume = cell_volume(cell);
    std::array<double, 3> result{};
    for (std::size_t i = 0; i < 3; ++i) {
        const double sine = std::sin(cell[3 + i] * degree);
        result[i] = cell[(i + 1) % 3] * cell[(i + 2) % 3] * sine / volume;
    }
    return result;
}

fraction_vector transformed_indices(const fraction_vector& hkl, const fraction_matrix& matrix) {
    fraction_vector result;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) result[i] += hkl[j] * matrix[j][i];
    }
    return result;
}

}  // namespace lomar
