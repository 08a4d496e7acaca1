#pragma once

#include "foundation/triple_3.h"

/// The lattice letters. The place of a letter in this text is its number.
inline constexpr char lattice_letters_3[] = "pabcifr";

/// The first (`which` 0) or last (`which` 1) row that a lattice has in the table of centring
/// vectors. Its first row is the null vector.
int centring_index_3(int place, int which);

/// The vector of a row, in 1/360 of a cell edge.
const triple_3& centring_vector_3(int row);
