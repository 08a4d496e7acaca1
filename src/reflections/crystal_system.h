#pragma once

#include "symmetry/sg_decoder_3.h"

/// Tells the crystal system, as a place in crystal_system_letters_3, by how many axes of each order
/// there are. Fails with " Cannot find Crystal System from xyz's".
int crystal_system_of_3(const xyz_list_3& ops);
