#pragma once

#include "symmetry/xyz_op_3.h"

// Operations on single axes of operators, and on the cycles of a generator. An axis or a column is
// 0, 1 or 2.

/// The list that holds the identity alone; it lasts for the whole run.
const xyz_list_3& identity_xyzs();

/// The smallest translation along an axis other than 0, as signed numbers; 0 if there is none.
int smallest_translation(const xyz_list_3& ops, int axis);
/// Sets the row of an axis, coefficients and translation, to 0 in every operator.
void clear_axis(xyz_list_3& ops, int axis);
/// 1 if the row of an axis is that of the unit matrix in every operator, else 0. Translations don't
/// count.
int axis_is_unit(const xyz_list_3& ops, int axis);
bool column_is_zero(const xyz_op_3& op, int column);

/// out = R (x, y, z)
void rotate_triple(triple_3& out, const xyz_op_3& op, int x, int y, int z);
/// out += R (x, y, z)
void add_rotated_triple(triple_3& out, const xyz_op_3& op, int x, int y, int z);

/// Appends the rotations g h, g g h, ... up to the first that equals that of h, with translations
/// of 0, and gives 1; or 0 if 24 products didn't come back to it. h ends as the product before the
/// last, or as the last of the 24; it mustn't stand in `ops`.
int rotation_cycle(const xyz_op_3& g, xyz_op_3& h, xyz_list_3& ops);

/// For each operator x in the list, appends g x, g g x, ... normalised, up to the first that equals
/// the normalised x, and gives 1; or 0 as soon as 14 products of an x didn't come back to it. An
/// empty list gets the identity first. So the identity becomes the cyclic group of g.
int close_cycles(const xyz_op_3& g, xyz_list_3& ops);

/// 1 if a power of `op`, the 24th at most, has the rotation of `target`; else 0. It stops at the
/// first power that is the identity with translations of 0; they aren't reduced.
int power_reaches(const xyz_op_3& op, const xyz_op_3& target);
