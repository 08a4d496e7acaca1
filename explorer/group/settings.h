#pragma once

#include <span>
#include <string>
#include <string_view>

#include "group/basis_change.h"

namespace lomar {

/// One of the 558 settings that the catalogue knows: what the tables say of it. Texts last as long
/// as the program.
struct setting {
    int index = 0;  ///< its place in settings()
    int number = 0;
    std::string_view symbol;     ///< Hermann-Mauguin with blanks, without origin choice: `P n n n`
    std::string_view choice;     ///< 1 or 2: origin; H or R: axes; else empty
    std::string_view qualifier;  ///< axis and cell choice: `b1`, `-a3`, `ba-c`; else empty
    std::string_view hall;
    std::string_view full_symbol;
    std::string_view schoenflies;
    std::string_view crystal_system;
    std::string_view point_group;  ///< the type, without orientation
    std::string_view laue_class;
    bool centrosymmetric = false;
    bool sohncke = false;
    bool symmorphic = false;
    int enantiomorph = 0;  ///< number of the other group of the pair, 0 if there is none
    std::string_view polar_directions;  ///< `0 1 0`, several with `;` between them; may be empty
    std::string_view standard_basis;    ///< as basis_text
    std::string_view standard_origin;   ///< as text of a vector

    /// The name that finds exactly this setting: the symbol, and the choice after a colon.
    std::string name() const;
    /// What distinguishes it from the others of its number: choice and qualifier, `b1`, `2 cab`,
    /// `H`; may be empty.
    std::string variant() const;
    /// The change to the standard setting of the group's number.
    basis_change to_standard() const;
};

/// All settings: the 530 conventional ones by number, of each number the first choice first; then
/// the further ones.
std::span<const setting> settings();
/// The standard setting of a number from 1 to 230: unique axis b with cell choice 1, origin choice
/// 2, hexagonal axes.
const setting& standard_setting(int number);
/// The setting of a name() to the letter, or null.
const setting* find_setting(std::string_view name);

}  // namespace lomar
