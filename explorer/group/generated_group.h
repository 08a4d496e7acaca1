#pragma once

#include <optional>
#include <vector>

#include "group/basis_change.h"
#include "group/symop.h"

namespace lomar {

/// All operators of a cell.
struct operator_list {
    std::vector<fraction_vector> centring;  ///< the null vector first, then in ascending order
    std::vector<symop> operators;           ///< in the order of space_group::operators
};

/// The group that some operators generate on a lattice, in other axes if `change` says so. Throws
/// std::domain_error, with a text for the user, when the rotations are infinitely many, when a
/// product is a translation that the lattice lacks, or when the new axes don't fit the group.
operator_list generate(const std::vector<symop>& generators,
                       const std::vector<fraction_vector>& centring,
                       const std::optional<basis_change>& change = std::nullopt);

/// Brings operators, one for each rotation, into the order for reading: the identity first, proper
/// rotations before improper ones, low orders before high ones.
void sort_for_reading(std::vector<symop>& ops);

/// The letter of a lattice, one of PABCIFR; 0 if its centring has none.
char lattice_letter(const std::vector<fraction_vector>& centring);

}  // namespace lomar
