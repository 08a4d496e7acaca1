#pragma once

#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "analysis/completion.h"
#include "analysis/shift_congruence.h"
#include "group/basis_change.h"
#include "group/space_group.h"

namespace lomar {

/// A setting, prepared for being compared with other groups.
struct known_setting {
    explicit known_setting(const setting& row);

    space_group group;
    fraction_matrix primitive;      ///< a basis of its lattice, as columns
    fraction_matrix back;           ///< its inverse
    std::vector<symop> generators;  ///< in that basis
    shift_congruence shifts;        ///< of the generators' rotations
};

/// Which changes of axes and origin take a group onto a setting.
class setting_matcher {
public:
    /// The operators in the basis of the group's lattice, each rotation once.
    setting_matcher(const fraction_matrix& lattice_basis, std::span<const symop> operators);

    /// If the group described by these axes (columns in the lattice's basis) differs from the
    /// setting by an origin alone: the origin in the input's axes, of all that do the one for which
    /// its difference to `offset` is smallest in [0, 1), and that difference is the answer.
    std::optional<fraction_vector> origin(const known_setting& target, const int_matrix& columns,
                                          const fraction_vector& offset = {}) const;
    /// The change from the input's axes.
    basis_change change(const int_matrix& columns, const fraction_vector& origin) const;

private:
    fraction_matrix basis_;
    std::map<int_matrix, fraction_vector> translations_;
};

/// Whether a change takes the lattice and all operators of a group (in the lattice's basis) onto
/// those of a setting, none left out: worked out again by matrices, as a check of a search. The
/// setting's list is the representatives and the centring vectors, the null vector too.
bool is_taken_onto(const fraction_matrix& lattice_basis, std::span<const symop> operators,
                   const basis_change& change, std::span<const symop> representatives,
                   std::span<const fraction_vector> centring);

}  // namespace lomar
