#pragma once

#include "foundation/triple_3.h"

/// The lattice letters. The place of a letter in this text is its number.
inline constexpr char lattice_letters_3[] = "pabcifr";

/// The centring vectors of a lattice are rows of one table, next to each other, 0, 0, 0 before the
/// others. Gives the number of its first row for a `which` of 0, of its last for 1.
int centring_index_3(int place, int which);

/// One row of the table; 360 is a whole cell edge.
const triple_3& centring_vector_3(int row);
