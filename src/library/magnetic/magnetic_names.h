#pragma once

#include "foundation/string_3.h"
#include "textin/data_text_3.h"
#include "textin/sstring_in.h"

/// What magnetic_names.txt knows of a magnetic space group.
struct magnetic_name_3 {
    string_3 bns_number;  ///< the key of load_magnetic_group_3, such as 14.79
    string_3 og_number;   ///< such as 14.5.90
    string_3 bns_symbol;  ///< with ^ for the prime, as in shubnikovgroups.txt
    string_3 og_symbol;
    int type = 0;           ///< 1 colourless, 2 grey, 3 without and 4 with primed translations
    int family_number = 0;  ///< the space group without regard to time reversal
    int parent_number = 0;  ///< for type 4 the space group of the unprimed operators, else the same
    char lattice_letter = 0;  ///< for add_centring_3
};

/// Finds a group by BNS number, OG number, BNS symbol or OG symbol, the first that fits in this
/// order; 28 OG symbols are BNS symbols of other groups. The prime is ' or ^; letters count as they
/// are; blanks don't count. Fails with " Cannot find magnetic space group", the name, "in file" and
/// the path, with " Error in  magnetic_names.txt" when a record is incomplete, or when the file is
/// missing.
magnetic_name_3 find_magnetic_group_3(const char* name);

/// The same from the text of magnetic_names.txt, whose name replaces the path in messages.
magnetic_name_3 find_magnetic_group_3(const data_text_3& names, const char* name);

/// Goes through the groups of magnetic_names.txt, for instance to list them:
///
///     sstring_in in(names.text());
///     magnetic_name_3 group;
///     while (read_magnetic_name_3(in, group)) ...
///
/// False at the end of the text. Fails with " Error in  magnetic_names.txt".
bool read_magnetic_name_3(sstring_in& in, magnetic_name_3& group);
