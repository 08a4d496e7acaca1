#pragma once

#include <span>
#include <string>
#include <vector>

#include "group/settings.h"
#include "group/symop.h"

namespace lomar {

/// A space group in some axes, with all operators of the cell.
struct space_group {
    /// Its row in the table; for axes that the table lacks, the standard setting of its number.
    const setting* row = nullptr;
    bool tabulated = true;     ///< whether the operators are those of the row
    std::string name;          ///< what names exactly this group in these axes
    std::string hall;          ///< a Hall symbol of it
    basis_change to_standard;  ///< to the standard setting of its number
    /// R on rhombohedral axes, too, where `centring` has one vector; 0 if the vectors are those of
    /// no letter.
    char lattice = 'P';
    std::vector<fraction_vector> centring;  ///< the null vector first
    /// The identity first; translations in [0, 1). The first operators.size() / centring.size() of
    /// them are one for each coset of the centring, each further stretch of that length is those
    /// plus the next centring vector, in the same order.
    std::vector<symop> operators;

    std::size_t primitive_order() const { return operators.size() / centring.size(); }
    std::span<const symop> representatives() const { return {operators.data(), primitive_order()}; }
};

/// The group of a setting, its operators made by the library from the catalogue that is compiled
/// in.
space_group group_of(const setting& row);

/// The letter of the lattice, or for vectors without one `2 points in the cell`.
std::string lattice_text(const space_group& group);

}  // namespace lomar
