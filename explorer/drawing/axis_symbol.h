#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace lomar {

/// One operator on a line: a rotation, or an inversion or rotoinversion whose point is on it.
struct axis_member {
    std::size_t op = 0;  ///< its place in the list of operators
    int kind = 1;
    int screw = 0;  ///< of a rotation, n p / period for the screw part p of a right-handed turn
    int time = 1;
    std::int64_t height = 0;  ///< of the point, or where the axis is in the page
};

/// The symbol for all operators of a line, as printed tables combine them: 4 includes its 2,
/// 3 with an inversion centre is -3, 2 with one is 2/m (International Tables A (2016), table
/// 2.1.2.5, and its predecessors).
struct axis_symbol {
    int order = 1;                 ///< of the rotation: 1 (a centre alone), 2, 3, 4, 6
    int screw = 0;                 ///< the index p of n_p
    int rotoinversion = 0;         ///< -4 or -6 where the symbol is theirs, else 0
    bool has_centre = false;       ///< an inversion centre, or -3
    bool primed_rotation = false;  ///< time reversal with the rotation, or with -4, -6
    bool primed_centre = false;
    bool primed_plane = false;  ///< with the m of 2/m, 4/m, 6/m
    bool has_height = false;    ///< whether there is a point, at the lowest `height`
    std::int64_t height = 0;
    std::vector<std::size_t> operators;  ///< in rising order

    /// `21/m`, `-4`, `3`, `2'/m'`, `-1`.
    std::string kind() const;
    bool is_primed() const { return primed_rotation || primed_centre || primed_plane; }
};

/// The symbols of a line: one, or two where the lattice has antitranslations along it, which give
/// every operator a mate with the other sign of time.
std::vector<axis_symbol> symbols_of(const std::vector<axis_member>& members, bool doubled);

}  // namespace lomar
