#pragma once

#include <string>

#include "drawing/element_set.h"
#include "drawing/picture.h"

namespace lomar {

/// The two points where a line crosses the border of what is drawn, in the page.
struct segment {
    page_vector from, to;
};

/// From the left, or from above, so that labels go to the right or below.
segment segment_of(const projection& cell, const page_line& line);

/// The line in fractions of the drawn axes, in the order of a, b, c: `x,1/4`, `x,-x+1/2`. The
/// parameter is that of the coordinate that comes first in the cell.
std::string text_of(const picture& page, const page_line& line);

}  // namespace lomar
