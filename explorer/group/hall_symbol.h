#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "group/space_group.h"
#include "group/unknown_symbol.h"

namespace lomar {

/// What a Hall symbol says.
struct hall_group {
    std::string symbol;                     ///< in one spelling: `-P 2yb (x,y,z+1/4)`
    std::vector<fraction_vector> centring;  ///< the null vector first
    /// All operators of the cell, in the order of space_group::operators.
    std::vector<symop> operators;
};

/// Decodes a Hall symbol, `[-]L N N N N (V)` with blanks between its parts; small and capital
/// letters count alike, and underscores count as blanks. The rules are those of S. R. Hall, Acta
/// Cryst. A37 (1981) 517-525, and of International Tables for Crystallography B (2010), 1.4,
/// appendix A1.4.2:
///
///  - L is one of P A B C I R S T F or H; a minus before it adds the inversion at the origin;
///  - N is 1, 2, 3, 4 or 6, with a minus for a rotoinversion, and up to four of them. Behind it, in
///    any order: its axis (x, y, z; `'` for a-b and `"` for a+b, or what these are about the axis
///    of the rotation before; * for a+b+c), a digit for a screw, letters for a translation (a b c n
///    halves, u v w d quarters);
///  - without an axis the first N is along c; the second, a 2, along a after a 2 or 4, along a-b
///    after a 3 or 6; the third, a 3, along a+b+c;
///  - V are the new coordinates as texts, `(x-y,x+y,z+1/4)`, or a shift in twelfths of the edges,
///    `(0 0 1)`: S' = V S V^-1.
///
/// The operators must make a group on that lattice. Throws unknown_symbol, whose message names the
/// part and its place.
hall_group decode_hall(std::string_view symbol);

/// The group with its number and the way to the standard setting, which an identification finds
/// (analysis/hall_group.cpp): that of the table if a setting has the same operators. Throws as
/// identify().
space_group space_group_of(const hall_group& hall);

}  // namespace lomar
