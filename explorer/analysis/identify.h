#pragma once

#include <span>
#include <vector>

#include "analysis/completion.h"
#include "group/settings.h"
#include "group/symop.h"

namespace lomar {

/// How the answer of an identification lies to the input's axes.
enum class match_kind {
    exact,       ///< the input's operators are those of the setting
    origin,      ///< the same axes, another origin
    transformed  ///< other axes: those of the standard setting
};

/// Which group some operators make, and in which axes.
struct identification {
    const setting* row = nullptr;
    match_kind match = match_kind::exact;
    basis_change change;               ///< from the input's axes to those of `row`, det P > 0
    std::vector<const setting*> also;  ///< other settings with the very same operators as `row`
};

/// Identifies a space group from all its operators, complete modulo the integer translations;
/// centring translations among them are found. Time reversal is not looked at. The order doesn't
/// matter, nor do lattice translations that were added.
///
/// Which of all possible answers: an exact setting first (of equal rows the first of the table);
/// else one in the same axes with another origin; else the standard setting. Among the changes to
/// it the smallest sum of the absolute entries of P, then the smallest origin in [0, 1) (its first
/// coordinate counts before its second), then the greatest sum of the entries themselves, then the
/// P with the greater entries first, row by row. The axes are taken as right-handed, so that
/// enantiomorphs differ.
///
/// The answer is verified: throws std::logic_error if the changed operators were not those of the
/// setting. Throws std::runtime_error with one line when the operators make no space group,
/// std::overflow_error when numbers leave 64 bits.
identification identify(std::span<const symop> operators);
/// The same of a group that complete() made; its operators have no time reversal.
identification identify(const completed_group& group);
/// The change to the standard setting, even where the operators are those of another one: the
/// standard setting in the group's own axes if they fit, else the smallest change as above.
identification identify_standard(const completed_group& group);

std::string_view match_text(match_kind match);  ///< `exact`, `origin`, `transformed`

}  // namespace lomar
