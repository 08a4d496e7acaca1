#pragma once

#include "catalogue/sg_catalogue_entry_3.h"
#include "textout/stream_out.h"

/// By group number, 1 to 230, what the catalogue calls the group in the setting that its bare
/// number means: lower case, blanks between the names, empty if it has none. Read at first
/// use; fails as load_sg_names does, and what was read until then is the table from that time on.
const vector_string_3& sg_name_table();

/// Reads these names. Fails with " File", the path and " is corrupt" on a record whose number isn't
/// 1 to 230, and when the file is missing or malformed; the list has what was read until then.
void load_sg_names(vector_string_3& names);

/// Looks a symbol up in that table and gives the group number, or 0. What begins with a digit is
/// taken for a number and not looked up. Fails with " No Spacegroup" for a text of blanks and
/// parentheses.
int sg_number_of(const char* text);
