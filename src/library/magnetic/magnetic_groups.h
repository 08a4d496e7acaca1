#pragma once

#include "foundation/string_3.h"
#include "symmetry/xyz_op_3.h"
#include "textin/data_text_3.h"

// Magnetic groups, in which the tag of an operator is the sign of its time reversal.

/// The tag of an operator that a list had with both signs of time reversal.
inline constexpr int both_signs_3 = 2;

/// Finds a magnetic group in shubnikovgroups.txt by its BNS number `key`, and adds its operators,
/// without centring copies, to `ops`, all of which it normalises and sorts. `name` becomes the BNS
/// symbol, written with ^ for the prime. The tags are 1 and -1; two operators that differ in
/// nothing else become one with the tag 2. Fails with
///     " Cannot find magnetic space group", key, "in file", path
///     " Error in  shubnikovgroups.txt"      if an operator occurs twice with the same sign
///     " Intensity of magnetic space group", key, " is zero\n"    for a grey group
///     " Error loading symmetry xyz's"       if an operator is malformed
void load_magnetic_group_3(xyz_list_3& ops, const char* key, string_3& name);

/// The same from the text of shubnikovgroups.txt, whose name replaces the path in messages.
void load_magnetic_group_3(const data_text_3& groups, xyz_list_3& ops, const char* key,
                           string_3& name);

/// Replaces `ops` by its copies under the centring of a lattice, one of "pabcifr" or "PABCIFR",
/// normalised; the first ones are the old list. Tags are kept. Fails with " Unknown lattice" and
/// the letter.
void add_centring_3(xyz_list_3& ops, char letter);

/// Writes what an operator makes of a moment mx, my, mz, such as `-mx,my,-mz`, after `prefix`,
/// which may be null, and between two `wrap` unless that is a blank. `spaced` puts a blank after
/// each of the three.
void write_moment_op(stream_out& stream, const xyz_op_3& op, char wrap, const char* prefix,
                     bool spaced);
