#pragma once

#include <span>
#include <string>
#include <vector>

#include "analysis/symmetry_element.h"

namespace lomar {

/// `[1 -1 0]`.
std::string direction_text(const int_vector& vector);

/// What an operator does, in words: `2-fold screw rotation about [0 1 0]`, `glide reflection,
/// normal [1 -1 0]`, `inversion`.
std::string meaning_text(const symmetry_element& element);

/// The table of a group's operators, those of each centring vector in a stretch of its own. Each
/// row has the operator as the attribute data-operator, in the spelling of the data-operators of
/// the drawings; magnetic ones with their time reversal.
std::string operator_table(std::span<const symop> operators,
                           const std::vector<fraction_vector>& centring, bool magnetic);

}  // namespace lomar
