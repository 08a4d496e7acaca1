#pragma once

#include "reflections/hkl_classes.h"
#include "symmetry/xyz_op_3.h"
#include "textout/stream_out.h"

// The class lists of hkl_classes.h, worked out from a group and written into its .sg file. Two
// reflections are similar if symmetry makes them equally strong. Friedel mates are so in any group,
// and aren't written: where a list could have an operator and its negative, it has one.

/// The 112 candidates that are tried, in their order, as matrices that act on positions: the
/// transposes of reflection operators.
const xyz_list_3& hkl_form_table_3();

/// Works out the seven lists for a group, whose operators must be normalised and sorted.
void similar_hkls_3(const xyz_list_3& ops, class_lists_3& classes);

/// Writes a note line and the seven blocks. Fails with " Error in out_similar_hkls_3" unless
/// there are seven lists.
void out_similar_hkls_3(stream_out& stream, const class_lists_3& classes);

/// Works out the lists and writes them.
void add_similar_hkls_3(const xyz_list_3& ops, stream_out& stream);

/// Adds the lists to a .sg file that was made without. Fails with
/// " hhh details already in *.sg file" for one with lists.
void append_hhh_3(const char* sg_path);
inline void append_hhh_3(const string_3& sg_path) { append_hhh_3(sg_path.data); }
