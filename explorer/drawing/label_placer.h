#pragma once

#include <string_view>
#include <vector>

#include "drawing/projection.h"

namespace lomar {

/// Finds room for the labels of a picture: each goes to the first of some places near its point
/// where it covers neither a symbol nor another label, or else where it covers least.
class label_placer {
public:
    struct box {
        double left = 0, top = 0, right = 0, bottom = 0;
    };

    /// Keeps labels off a place.
    void block(const box& taken) { taken_.push_back(taken); }
    void block(page_vector centre, double radius);

    /// The start of the base line of a label of so many characters near a point, at least `clear`
    /// away from it, with the places that lie in direction `towards` tried first.
    page_vector place(page_vector point, double clear, std::size_t characters, page_vector towards);

    /// A box around all that is blocked or placed.
    box extent() const;

    static constexpr double font_size = 12;
    static constexpr double character_width = 6.4;

private:
    std::vector<box> taken_;
};

}  // namespace lomar
