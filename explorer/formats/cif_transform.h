#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "analysis/transform.h"
#include "group/space_group.h"

namespace lomar {

/// What a block of a CIF is to become: from its own group to the change of axes.
using axes_choice = std::function<basis_change(const space_group& group)>;

/// A CIF in other axes. In every block that lists operators the cell with its volume and Z, the
/// symbols, the operators, positions, anisotropic displacements (U, B or beta), multiplicities and
/// lists of reflection indices are rewritten; all else keeps its bytes. Comments after the name of
/// the block say what was done, and name the items that hang on axes all the same: symmetry codes
/// of distances, orientation matrices, phases, files of a refinement.
///
/// What would need a number that isn't known becomes `?`. Standard uncertainties go over as those
/// of independent quantities. Wyckoff letters become `?` where the new setting's convention may
/// name other ones.
///
/// Throws std::runtime_error with one line when the text is no CIF, lists no operators, contradicts
/// itself in the number of its group, has a number that can't be read in one of these places, or
/// when the axes don't fit.
std::string transformed_cif(const std::string& text, const axes_choice& axes);

/// The group that operators make, in their own axes. Throws as identify().
space_group group_of_operators(std::span<const symop> operators);

}  // namespace lomar
