#pragma once

#include "symmetry/xyz_op_3.h"

// What programs ask of operators beside xyz_op_3.h: about one axis (0, 1 or 2 for a, b or c), and
// about what a generator leads to.

/// The operators of P 1.
const xyz_list_3& identity_xyzs();

/// The smallest translation along an axis other than 0, as signed numbers; 0 if there is none.
int smallest_translation(const xyz_list_3& ops, int axis);
/// Makes all operators send that coordinate to 0.
void clear_axis(xyz_list_3& ops, int axis);
/// 0 if an operator does more to that coordinate than to add a translation, else 1.
int axis_is_unit(const xyz_list_3& ops, int axis);
bool column_is_zero(const xyz_op_3& op, int column);

/// out = R (x, y, z)
void rotate_triple(triple_3& out, const xyz_op_3& op, int x, int y, int z);
/// out += R (x, y, z)
void add_rotated_triple(triple_3& out, const xyz_op_3& op, int x, int y, int z);

/// Appends the rotations g h, g g h, ... up to the first that equals that of h, with translations
/// of 0, and gives 1; or 0 if 24 products didn't come back to it. h ends as the product before the
/// last, or as the last of the 24; it must not be an element of `ops`.
int rotation_cycle(const xyz_op_3& g, xyz_op_3& h, xyz_list_3& ops);

/// For each operator x in the list, appends g x, g g x, ... normalised, up to the first that equals
/// the normalised x, and gives 1; or 0 as soon as 14 products of an x didn't come back to it. An
/// empty list is taken for that of P 1 and so becomes the cyclic group of g.
int close_cycles(const xyz_op_3& g, xyz_list_3& ops);

/// 1 if a power of `op`, the 24th at most, has the rotation of `target`; else 0. Powers after one
/// that is exactly x, y, z aren't tried; as nothing is normalised, x+1, y, z is no such one.
int power_reaches(const xyz_op_3& op, const xyz_op_3& target);
