#pragma once

#include "foundation/string_3.h"
#include "symmetry/xyz_op_3.h"

// The operators of a group for programs that link the library: from its .sg file, or from the file
// of magnetic space groups, where the tag of an operator is the sign of its time reversal.

/// The tag of an operator that a list had with both signs of time reversal.
inline constexpr int both_signs_3 = 2;

/// Fills `ops` with the operators of the .sg file of a symbol, and `path` with that file's path.
/// Generates a missing file in a child process, and says on the console what it does. Fails with
/// " Error generating equivalent positions" when the child does; the list stays empty when the
/// child leaves no file.
void load_group_xyzs_3(xyz_list_3& ops, string_3& path, const char* symbol);

/// Appends the operators of the record `key` (a BNS number) of shubnikovgroups.txt, without
/// centring copies, to `ops`; the list is then normalised and sorted. `name` becomes the second
/// name of the record: the BNS symbol with ^ for the prime. A tag is 1 or -1, or 2 for an operator
/// that the list had with both signs. Fails with
///     " Cannot find magnetic space group", key, "in file", path
///     " Error in  shubnikovgroups.txt"      if an operator stands there twice with the same sign
///     " Intensity of magnetic space group", key, " is zero\n"    for a grey group
///     " Error loading symmetry xyz's"       if an operator is malformed
void load_magnetic_group_3(xyz_list_3& ops, const char* key, string_3& name);

/// Replaces `ops` by its copies under the centring of a lattice, one of "pabcifr" or "PABCIFR",
/// normalised; the first ones are the old list. Tags are kept. Fails with " Unknown lattice" and
/// the letter.
void add_centring_3(xyz_list_3& ops, char letter);

/// Writes how an operator acts on a moment: `-mx,my,-mz`. A `prefix` that isn't null comes first; a
/// `wrap` that isn't a blank stands on both sides; `spaced` puts a blank behind each row.
void write_moment_op(stream_out& stream, const xyz_op_3& op, char wrap, const char* prefix,
                     bool spaced);
