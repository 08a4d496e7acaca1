#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "drawing/projection.h"
#include "group/symop.h"

namespace lomar {

/// The general positions that lie over one place of the page, whatever the general point is.
struct position_pile {
    symop first;                         ///< one of their operators in the axes of the view
    std::vector<std::size_t> operators;  ///< all of them, and those that translations take there
                                         ///< from the part of the cell that is not drawn
    std::string plain_heights, other_heights;  ///< of the two hands: `+,1/2-`
    bool has_plain = false, has_other = false;
    bool has_unprimed = false;
};

/// The general positions of a cell as one sees them along an axis.
struct position_piles {
    std::vector<position_pile> piles;
    /// Where there are too many, only what the translations repeat is drawn, if that is a quarter,
    /// a third or a half of the cell.
    bool is_dense = false;
    drawn_part part = {1, 1};
    /// Where each has one with time reversal so much higher, the heights of these are left out.
    std::optional<fraction> mates_at;
};

/// The operators are all of the cell; throws as elements_of.
position_piles piles_of(std::span<const symop> operators, int axis);

}  // namespace lomar
