#pragma once

#include <array>
#include <span>

#include "group/symop.h"

namespace lomar {

/// Edges in any unit, angles in degrees: a, b, c, alpha, beta, gamma.
using cell_parameters = std::array<double, 6>;

/// How far a picture goes along the two drawn axes, in fractions of them, from the origin.
using drawn_part = std::array<fraction, 2>;

/// A point or vector of the page: to the right, and down.
struct page_vector {
    double x = 0, y = 0;

    friend page_vector operator+(page_vector a, page_vector b) { return {a.x + b.x, a.y + b.y}; }
    friend page_vector operator-(page_vector a, page_vector b) { return {a.x - b.x, a.y - b.y}; }
    friend page_vector operator*(double f, page_vector a) { return {f * a.x, f * a.y}; }
};

double length(page_vector v);
/// The vector at length 1; the null vector as it is.
page_vector unit(page_vector v);

/// The cell as one sees it along one of its axes, from the tip of the axis: an orthogonal
/// projection, the second drawn axis to the right, the first down or obliquely down.
class projection {
public:
    /// The cell's shape is the mean of the shapes that the operators make of `cell`, so that it
    /// fits the group. `part` is how much of the two drawn axes one sees; that is `width` wide, or
    /// less where it would be more than twice as high. Throws std::domain_error for parameters
    /// that make no cell.
    projection(std::span<const symop> operators, int axis, const cell_parameters& cell,
               double width, const drawn_part& part = {1, 1});

    /// The edges of the drawn part.
    page_vector down() const { return part_[0].to_double() * down_; }
    page_vector right() const { return part_[1].to_double() * right_; }
    const drawn_part& part() const { return part_; }
    /// Of fractions of the two drawn axes, from the origin of the cell.
    page_vector at(double of_down, double of_right) const {
        return of_down * down_ + of_right * right_;
    }
    /// Whether the drawn axis (0 down, 1 right) is shortened, since it is inclined to the page.
    bool is_inclined(std::size_t drawn) const { return inclined[drawn]; }

private:
    drawn_part part_;
    page_vector down_, right_;
    std::array<bool, 2> inclined{};
};

/// The mean of the shapes that the operators make of a cell: the nearest cell that fits the group.
/// Throws as projection.
cell_parameters fitting_cell(std::span<const symop> operators, const cell_parameters& cell);

/// A cell that is in no way special, for groups without a given one.
inline constexpr cell_parameters plain_cell = {1.0, 1.2, 0.9, 97, 105, 100};

}  // namespace lomar
