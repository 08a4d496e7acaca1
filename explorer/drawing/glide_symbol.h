#pragma once

#include "drawing/lattice.h"

namespace lomar {

/// How a plane normal to the page is drawn: International Tables A (2016), table 2.1.2.1.
enum class line_style {
    mirror,    ///< full
    along,     ///< dashed: the glide is along the line
    upward,    ///< dotted: along the projection axis
    both,      ///< two dots between dashes: one along each, in a centred lattice (e)
    diagonal,  ///< a dot between dashes: half a translation along each (n)
    diamond    ///< the same with arrows: a quarter of each (d)
};

/// What a reflection and the lattice translations in its plane make together.
struct glide_symbol {
    line_style style = line_style::mirror;
    char letter = 'm';  ///< m, a, b, c, e, n, d, or g for any other
    /// The shortest glide vector, with its third component not below 0.
    scaled_vector glide{};
};

/// The symbol of a plane h.x = const with one glide vector, for the projection along the third
/// axis. `letters` names the axes.
glide_symbol glide_symbol_of(const lattice& translations, const int_vector& plane,
                             const scaled_vector& glide, const char* letters);

}  // namespace lomar
