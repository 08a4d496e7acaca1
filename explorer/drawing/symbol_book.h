#pragma once

#include <set>
#include <string>

#include "drawing/projection.h"
#include "drawing/svg_writer.h"

namespace lomar {

/// The graphical symbols of a picture: each is defined once, if it is used at all.
///
///     2 21 3 31 32 4 41 42 43 6 61 62 63 64 65   rotation points, and screws with their tails
///     -4 -6                                      rotoinversions
///     centre, eye                                inversion centre, and one within a rotation point
///     arrow, half                                ends of axes in the page, to the right
///     head, stem                                 arrowhead; the stem of an inclined axis
///     prime                                      the mark of time reversal
///     point, other, double                       general positions: one, one of the other hand,
///     both
class symbol_book {
public:
    explicit symbol_book(std::string prefix) : prefix_(std::move(prefix)) {}

    /// Writes one use of a symbol. `direction` turns it: one drawn to the right points that way.
    void use(svg_writer& out, const std::string& name, page_vector at, double scale = 1,
             page_vector direction = {1, 0}, bool primed = false);

    /// The <defs> of all symbols used.
    void write_definitions(svg_writer& out) const;

private:
    std::string prefix_;
    std::set<std::string> used;
};

}  // namespace lomar
