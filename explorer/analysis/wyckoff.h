#pragma once

#include <string>
#include <vector>

#include "group/space_group.h"

namespace lomar {

/// A Wyckoff position of a group in its axes.
struct wyckoff_position {
    char letter = 'a';          ///< A is the 27th, of P m m m
    int multiplicity = 1;       ///< points in the cell, centring counted
    std::string site_symmetry;  ///< oriented along the group's axes: oriented_symbol.h
    /// The orbit modulo the centring vectors, in the order of the operators that make it:
    /// `x,1/4,z`, constants in [0, 1). In the standard setting the first is that of the tables, in
    /// others the copy of it with the smallest constants.
    std::vector<std::string> positions;
    /// The same as maps from the parameters x, y, z to the point. Columns of parameters that it
    /// lacks are 0.
    std::vector<symop> orbit;
};

/// All positions in the order of their letters, the general one last. Letters and site symmetries
/// are those of International Tables for Crystallography A for the standard setting, carried over
/// by the group's to_standard; data/README.md says where the table comes from.
std::vector<wyckoff_position> wyckoff_positions(const space_group& group);

}  // namespace lomar
