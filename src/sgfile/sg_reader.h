#pragma once

#include "symmetry/xyz_op_3.h"
#include "textin/sstring_in.h"

// Readers of operators in text. Translations come as they are written, negative ones too; see
// normalise_xyzs_3.

/// Finds the xyzs block and appends its operators. Fails when there is none, or with
/// " Error loading symmetry xyz's".
void load_xyzs_3(sstring_in& in, xyz_list_3& ops);

/// Reads one operator such as `-x, y+1/2, -z`; instead of a comma there may be a new line. A number
/// after a third comma becomes the tag, which otherwise stays. Fails with
/// " Error loading symmetry xyz's".
void load_xyz_op_3(sstring_in& in, xyz_op_3& op);

/// Appends the reflection operators of the next block, such as `h-k, k, 0`. Fails with
/// " Error loading symmetry hkls".
void load_hkl_ops_3(sstring_in& in, xyz_list_3& ops);

/// As load_xyzs_3, from a file.
void load_sg_file_xyzs_3(const char* sg_path, xyz_list_3& ops);
inline void load_sg_file_xyzs_3(const string_3& sg_path, xyz_list_3& ops) {
    load_sg_file_xyzs_3(sg_path.data, ops);
}

/// 1 if the file has a section of similar reflections; 0 if not, or if it can't be read.
int has_hkl_section_3(const char* path);
