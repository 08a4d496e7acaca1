#pragma once

#include "catalogue/sg_catalogue_entry_3.h"
#include "symmetry/xyz_op_3.h"

// Groups by way of their .sg files. A missing file is generated in a process of its own.

// Results of load_space_group.
inline constexpr int space_group_loaded = 1;
inline constexpr int space_group_empty = 2;          ///< the symbol is empty
inline constexpr int space_group_invalid = 4;        ///< it can't name a group
inline constexpr int space_group_not_generated = 8;  ///< there is no file, and no way to make it

/// Fills `entry` from the .sg file of a symbol; a missing file is generated in a process of its
/// own. Gives one of the results above. Fails as set_symbol does, and when the file can't be read.
int load_space_group(sg_catalogue_entry_3& entry, const char* symbol);

/// Fills `ops` with the operators of the .sg file of a symbol, and `path` with that file's path.
/// Generates a missing file in a child process, and says on the console what it does. Fails with
/// " Error generating equivalent positions" when the child does. A child that neither fails nor
/// makes the file, as for lack of a tool to start, gives no operators.
void load_group_xyzs_3(xyz_list_3& ops, string_3& path, const char* symbol);
