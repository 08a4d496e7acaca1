#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "drawing/projection.h"
#include "group/symop.h"

namespace lomar {

enum class diagram_part { elements, positions, both };

struct diagram_options {
    int axis = 2;  ///< one looks along a (0), b (1) or c (2), from the tip of the axis
    diagram_part what = diagram_part::elements;
    /// The shape of the cell, averaged so that it fits the group; else a plain one.
    std::optional<cell_parameters> cell;
    std::string name;          ///< of the group, for the text alternative
    std::string prefix = "s";  ///< before every id, so that one page can hold several pictures
    /// A file of its own, with its style in it; else markup for a page that has diagram_style().
    bool standalone = true;
    /// Writes operators with their time reversal, as xyzt_text; always done if any has it.
    bool with_time = false;
};

/// The symmetry elements of a group in projection along a cell axis, its general positions, or both
/// one above the other, as SVG. The operators are all of the cell, centring copies among them;
/// nothing else is needed. The first drawn axis (a, in the view along c) runs down the page, the
/// second to the right, the third towards the reader. Equal input gives equal bytes.
///
/// Symbols are those of International Tables for Crystallography A (2016), tables 2.1.2.1 to
/// 2.1.2.7, the tails of right-handed screws turning anticlockwise. An axis in the page, or a plane
/// parallel to it, is one that is parallel to the two other cell axes, even where these are
/// inclined to the page; heights are fractions of the projection axis. Inclined axes have their
/// symbols where they pierce height 0, beside the place, on the side to which they rise.
///
/// Every element is a <g class="element"> with these attributes, positions one of class "position"
/// with the first:
///   data-operators  the operators of the cell that it shows, `;` between them
///   data-kind       `2`, `21/m`, `-4`, `m`, `n`, `3'`
///   data-at         its place in fractions of the drawn axes, in the order of a, b, c: `0,1/4` for
///                   a point, `x,1/4` for a line, `x,y` for a plane of the page
///   data-height     the height of its point, line or plane, where it has one
///   data-direction  of an inclined axis: `1 1 1`
/// Where there is too much for a page, only the part of the cell is drawn that translations repeat,
/// such as the quarter of cubic groups with all faces centred: an element then has the operators of
/// all that it stands for, and the picture's outermost group the attribute
///   data-part       how much of the drawn axes is there: `1/2,1/2`
/// What can't be drawn, planes inclined to the page and antitranslations, is listed beneath in
/// groups of class "unshown", whose data-at holds all places as locations in the cell.
///
/// Throws std::domain_error for an operator that no crystal has and a cell that is none,
/// std::overflow_error for fractions too fine.
std::string diagram_svg(std::span<const symop> operators, const diagram_options& options);

/// The axis along which printed tables look first: the unique axis of a monoclinic group if that is
/// a cell axis, else c.
int customary_axis(std::span<const symop> operators);

/// The style sheet of pictures that are not standalone. It follows the reader's choice of a light
/// or dark screen.
std::string_view diagram_style();

}  // namespace lomar
