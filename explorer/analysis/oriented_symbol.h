#pragma once

#include <string>
#include <string_view>

#include "group/space_group.h"

namespace lomar {

/// An oriented site-symmetry symbol of the standard setting in the axes of a group of its number:
/// International Tables for Crystallography A (2016), 2.1.3.12. The parts of an orthorhombic symbol
/// belong to a, b and c, so that .m. of P n m a is ..m in P b n m; those of a tetragonal one to c,
/// to a and b, and to the diagonals, so that .2. of P 4 2 2 is ..2 in C 4 2 2. In axes in which the
/// directions have no such places the symbol stays as it is, as it does in all other systems.
std::string oriented_symbol(std::string_view standard_symbol, const space_group& group);

}  // namespace lomar
