#pragma once

#include "symmetry/sg_decoder_3.h"
#include "symmetry/xyz_op_3.h"

/// Reads the generators of a text file, which are appended to `gens`:
///
///     symmetry { x, y, z; -x, y+1/2, -z+1/2 }
///
/// Any text may precede `symmetry`. Rows are separated by commas or semicolons, and three of
/// them make a generator; numerators and denominators have one digit. If the file ends inside
/// a generator, the missing rows are 0. Fails when the file can't be opened, or with " Missing: {",
/// " No generators in file" and the name, or " Error loading symmetry xyz's".
void read_generator_file(const char* name, xyz_list_3& gens);

/// Appends the operator, its square and so on, each normalised, as long as it doesn't come back; so
/// the identity is the last, if the operator has an inverse. Fails with
/// " Identity matrix not found after 13 operations".
void cyclic_powers(xyz_list_3& list, const xyz_op_3& op);

/// Builds the product of the cyclic groups of the generators in a file, and shows it on the
/// console: generators, their powers, and for each position its order, its determinant and the
/// places of its powers, a `*` for a power that isn't in the list. Fails, beside the failures
/// above, with " Too many equivalent positions" beyond four million.
void run_generator_file(sg_decoder_3& decoder, const char* name);
