#pragma once

#include "symmetry/xyz_op_3.h"

/// The letters of the crystal systems: anorthic (triclinic), monoclinic, orthorhombic, tetragonal,
/// trigonal, hexagonal, cubic. The place of a letter in this text is its number.
inline constexpr char crystal_system_letters_3[] = "amotrhc";

/// The crystal system of a list of operators, as a place in the letters above, from the cyclic
/// subgroups of its point group. Fails with " Cannot find Crystal System from xyz's".
int crystal_system_of_3(const xyz_list_3& ops);
