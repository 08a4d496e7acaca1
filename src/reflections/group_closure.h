#pragma once

#include "symmetry/xyz_op_3.h"

/// Whether operators are a group but for whole cell edges: all different, and each product of two
/// among them. They must be normalised and sorted. One with a coefficient other than -1, 0 and 1
/// makes the answer no.
///
/// Not all products are tried. Operators are taken up as generators until their products reach all
/// of the list; the list is a group if each generator times each operator is in it, since every
/// operator is then a product of generators. A generator at least doubles what is reached, so there
/// are at most log2(n) of them, and n log2(n) products.
bool is_group_3(const xyz_list_3& sorted);
