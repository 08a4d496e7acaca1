#pragma once

#include "reflections/hkl_classes.h"
#include "symmetry/xyz_op_3.h"
#include "textout/stream_out.h"

// Similar reflections: those whose intensities are equal by symmetry. For each class of
// reflections the operators are found that carry a reflection into its similar ones, one of each
// pair of opposite operators (Friedel mates are left out).

/// The 112 candidates that are tried, in their order, as matrices that act on positions: the
/// transposes of reflection operators.
const xyz_list_3& hkl_form_table_3();

/// Finds the class lists of a group. `ops` must be normalised and sorted.
void similar_hkls_3(const xyz_list_3& ops, class_lists_3& classes);

/// Writes the seven blocks behind a note line. Fails with " Error in out_similar_hkls_3" unless
/// there are seven lists.
void out_similar_hkls_3(stream_out& stream, const class_lists_3& classes);

/// The two above in a row.
void add_similar_hkls_3(const xyz_list_3& ops, stream_out& stream);

/// Appends the blocks to a .sg file. Fails with " hhh details already in *.sg file" when it has
/// them.
void append_hhh_3(const char* sg_path);
