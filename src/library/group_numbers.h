#pragma once

#include "catalogue/sg_catalogue_entry_3.h"
#include "textout/stream_out.h"

/// The names of the 230 space groups in the catalogue, in lower case: entry i holds those of group
/// i, with a blank between two. They are the names of one setting, the one of the number alone; an
/// entry may be empty. Read at first use; fails as load_sg_names does.
const vector_string_3& sg_name_table();

/// Reads these names. Fails with " File", the path and " is corrupt" on a record whose number isn't
/// 1 to 230, and when the file is missing or malformed; the list stays as it was then.
void load_sg_names(vector_string_3& names);

/// The number of the group that a text names; 0 if no name in the table equals it. A text that
/// begins with a digit is a number, of whatever size. Fails with " No Spacegroup" when nothing but
/// blanks and parentheses was given.
int sg_number_of(const char* text);

// Results of load_space_group.
inline constexpr int space_group_loaded = 1;
inline constexpr int space_group_empty = 2;          ///< the symbol is empty
inline constexpr int space_group_invalid = 4;        ///< it can't name a group
inline constexpr int space_group_not_generated = 8;  ///< there is no file, and no way to make it

/// Fills `entry` from the .sg file of a symbol; a missing file is generated in a process of its
/// own. Gives one of the results above. Fails as set_symbol does, and when the file can't be read.
int load_space_group(sg_catalogue_entry_3& entry, const char* symbol);
