#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "group/space_group.h"
#include "group/unknown_symbol.h"

namespace lomar {

/// The group that a symbol means.
struct named_group {
    space_group group;
    std::vector<std::string> assumed;  ///< what the symbol left open: `origin choice 1`
    std::vector<std::string>
        alternatives;  ///< how to ask for the other: `P n n n:2 (origin choice 2)`
};

/// Finds the group of a symbol as people write it: in any case, with any blanks, underscores and
/// brackets. What is tried, in this order:
///
///  - the names of the catalogue: Hermann-Mauguin symbols, short, full, old and new ones, and
///    numbers, with a choice (`:1`, `:2`, `:H`, `:R`, a trailing S, Z, H or R) or the axes and the
///    cell choice (`14:b2`, `P 21/c:c`). A bare name means what it means to lomar6;
///  - symbols in which some parts are short and others full, `H 3 2` of protein files;
///  - Schoenflies symbols: `C2h^5`, `C2h5`;
///  - Hall symbols, with their blanks. `hall:` before a symbol leaves the others out.
///
/// Throws unknown_symbol, with the nearest names, for all else.
named_group resolve_symbol(std::string_view symbol);

/// The names of the other settings of the group's number.
std::vector<std::string> other_settings(const space_group& group);

}  // namespace lomar
