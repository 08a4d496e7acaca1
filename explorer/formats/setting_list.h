#pragma once

#include <string>
#include <vector>

#include "group/settings.h"

namespace lomar {

/// The settings that each of the words fits, in the order of the table. A word is the number of a
/// group or a range of numbers (`195-230`), a crystal system or its beginning (`mono`), a lattice
/// letter, a point group (`4/mmm`), a Schoenflies symbol of a space or a point group,
/// axes, cell choice or choice of origin (`b1`, `cab`, `2`), or one of `centrosymmetric`,
/// `sohncke`, `symmorphic`, `polar`, `enantiomorphic`. A word that is none of these is looked for
/// in the symbols (`21/c`). Case doesn't count. Throws std::runtime_error for a word that fits
/// nothing.
std::vector<const setting*> settings_for(const std::vector<std::string>& words);

// Such a list as a table for a terminal, as JSON and as CSV.

std::string setting_table(const std::vector<const setting*>& rows);
std::string setting_json(const std::vector<const setting*>& rows);
std::string setting_csv(const std::vector<const setting*>& rows);

}  // namespace lomar
