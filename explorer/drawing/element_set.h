#pragma once

#include <compare>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "drawing/axis_symbol.h"
#include "drawing/glide_symbol.h"
#include "group/symop.h"

namespace lomar {

/// The operators in the axes of a picture: the first axis runs down the page, the second to the
/// right, the third, along which one looks, towards the reader.
int_vector to_view(const int_vector& v, int axis);
symop to_view(const symop& op, int axis);
std::vector<symop> to_view(std::span<const symop> operators, int axis);

/// A straight line in the page: line[0] down + line[1] right = offset.
struct page_line {
    std::array<int, 2> line{};
    fraction offset;
    friend std::strong_ordering operator<=>(const page_line&, const page_line&) = default;
};

/// An axis normal to the page, an inversion centre (direction 0 0 0 for both), or an axis inclined
/// to the page, at its piercing point with height 0.
struct point_element {
    axis_symbol symbol;
    int_vector direction{};
    std::array<fraction, 2> place;
    fraction height;
    bool is_mate = false;  ///< whether it shares its place with one that has no time reversal
};

/// An axis parallel to the page; one that lies at several heights has the lowest.
struct flat_axis {
    axis_symbol symbol;
    page_line line;
    fraction height;
    bool is_mate = false;
};

/// A plane normal to the page.
struct steep_plane {
    glide_symbol symbol;
    page_line line;
    bool is_primed = false;
    bool is_mate = false;
    std::vector<std::size_t> operators;
};

/// A plane parallel to the page; one that lies at several heights has the lowest.
struct flat_plane {
    glide_symbol symbol;
    fraction height;
    bool is_primed = false;
    std::vector<std::size_t> operators;
};

/// What a projection can't show: planes inclined to the page, of one kind and direction, and the
/// antitranslations.
struct unshown_element {
    std::string kind;
    int_vector normal{};                 ///< in the cell's axes, as in symmetry_element
    std::vector<std::string> locations;  ///< in the cell's axes
    std::vector<std::size_t> operators;
};

/// All symmetry elements that meet the closed cell, as one sees them along a cell axis.
struct element_set {
    std::vector<point_element> points;
    std::vector<flat_axis> flat_axes;
    std::vector<steep_plane> steep_planes;
    std::vector<flat_plane> flat_planes;
    std::vector<unshown_element> unshown;
    fraction part = 1;     ///< of the drawn axes that is drawn
    bool is_grey = false;  ///< every operator is there with and without time reversal
};

/// The operators are all of the cell (modulo the integer translations, centring copies among
/// them). `axis` is 0, 1 or 2: the view along a, b or c. The letters of glide planes are those of
/// the cell's axes. Where there are many elements, and all repeat after half of either drawn axis,
/// the set is that of the quarter of the cell at the origin, as in printed tables: its elements
/// have the operators of all that they stand for. Throws std::domain_error for an operator that no
/// crystal has, and as lattice.
element_set elements_of(std::span<const symop> operators, int axis);

}  // namespace lomar
