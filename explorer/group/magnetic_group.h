#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "group/symop.h"
#include "group/unknown_symbol.h"

namespace lomar {

/// One of the 1651 magnetic space groups: what the tables say of it. Texts last as long as the
/// program. In symbols `'` is the prime, an underscore before a digit marks a screw axis, and one
/// before a letter the primed translation.
struct magnetic_facts {
    int uni_number = 0;  ///< from 1, in the order of the BNS numbers
    std::string_view bns_number;
    std::string_view og_number;
    std::string_view bns_symbol;
    std::string_view og_symbol;
    std::string_view uni_symbol;
    std::string_view
        og_to_bns;  ///< origin and axes of the BNS cell in the OG cell: `(0,0,0;a,b,2c)`
    int type = 0;   ///< 1 colourless, 2 grey, 3 without and 4 with primed translations
    int parent_number =
        0;  ///< for type 4 the space group of the unprimed operators, else the family
    int family_number = 0;  ///< the space group without regard to time reversal
    char lattice = 'P';     ///< of the unprimed translations
};

/// All of them, by BNS number.
std::span<const magnetic_facts> magnetic_groups();

/// A magnetic group in the setting of its BNS symbol: unique axis b with cell choice 1, hexagonal
/// axes, the origin at the inversion where there are two choices.
struct magnetic_group {
    const magnetic_facts* row = nullptr;
    std::vector<fraction_vector> centring;  ///< of unprimed translations; the null vector first
    /// With time reversal; the identity first, translations in [0, 1). The first operators.size() /
    /// centring.size() of them are one for each coset of the centring, the further stretches of
    /// that length are those plus each next centring vector. A grey group has each twice.
    std::vector<symop> operators;
};

magnetic_group group_of(const magnetic_facts& row);

/// Finds a group by its BNS number (`14.79`), its OG number (`14.5.90`), its BNS, OG or UNI symbol,
/// in this order: 28 OG symbols are the BNS symbols of other groups. Symbols count to the letter,
/// since 130 pairs differ by case alone; blanks don't count, and the prime may be typed as `'`, `^`
/// or a typographic one. `notation`, unless null, becomes what the name was found as: `BNS symbol`.
/// Throws unknown_symbol with the nearest names.
const magnetic_facts& find_magnetic(std::string_view name, std::string* notation = nullptr);

/// As find_magnetic, but null for a name that it would refuse.
const magnetic_facts* find_magnetic_exactly(std::string_view name, std::string* notation = nullptr);

/// Whether a name has what that of a space group can't: a prime, an underscore before a letter, or
/// two numbers with a point between them.
bool looks_magnetic(std::string_view name);

}  // namespace lomar
