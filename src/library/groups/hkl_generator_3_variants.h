#pragma once

#include "foundation/sorted.h"
#include "reflections/hkl_generator_3.h"

// Further lists of reflections are members of hkl_generator_3.

/// Finds the present reflections of the group in a .sg file, as hkl_generator_3::generate does with
/// `first`, and marks them in the grid of `second` with operators by the lowest two bits of `mode`:
///
///     0  those of the class lists; beside each new image whose first index that isn't 0 is
///        negative, its Friedel mate, too
///     1  their negatives
///     2  their negatives, with Friedel mates as in mode 0
///     3  both
///
/// The grid of `second` is then read by is_marked. The two must be different objects.
void mark_present(hkl_generator_3& first, hkl_generator_3& second, int mode, const char* sg_path,
                  const xyz_list_3& ops, const triple_3& limits);
