#pragma once

#include "symmetry/xyz_op_3.h"

/// The letters of the crystal systems: anorthic (triclinic), monoclinic, orthorhombic, tetragonal,
/// trigonal, hexagonal, cubic. The place of a letter in this text is its number.
inline constexpr char crystal_system_letters_3[] = "amotrhc";

/// Tells the crystal system, as a place in the letters above, by how many axes of each order there
/// are. Fails with " Cannot find Crystal System from xyz's".
int crystal_system_of_3(const xyz_list_3& ops);
