#pragma once

#include <string>
#include <vector>

#include "drawing/projection.h"

namespace lomar {

/// Characters of a text in UTF-8.
std::size_t characters_in(const std::string& text);

/// Finds room for the labels of a picture: each goes to the first of some places near its point
/// where it covers neither a symbol nor another label, or else where it covers least.
class label_placer {
public:
    explicit label_placer(double font_size) : font_size_(font_size) {}

    struct box {
        double left = 0, top = 0, right = 0, bottom = 0;
    };

    /// Keeps labels off a place.
    void block(const box& taken) { taken_.push_back(taken); }
    void block(page_vector centre, double radius);
    /// Keeps labels off a line, where there is room elsewhere.
    void avoid(page_vector from, page_vector to) { lines_.push_back({from, to}); }

    /// The start of the base line of a label of so many characters near a point, at least `clear`
    /// away from it, with the places that lie in direction `towards` tried first.
    page_vector place(page_vector point, double clear, std::size_t characters, page_vector towards);

    /// A box around all that is blocked or placed.
    box extent() const;

    double font_size() const { return font_size_; }
    double character_width() const { return 0.54 * font_size_; }

private:
    struct line {
        page_vector from, to;
    };

    double covered(const box& label) const;

    double font_size_;
    std::vector<line> lines_;
    std::vector<box> taken_;
};

}  // namespace lomar
