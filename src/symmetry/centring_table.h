#pragma once

#include "foundation/triple_3.h"
#include "symmetry/xyz_op_3.h"

/// The lattice letters. The place of a letter in this text is its number.
inline constexpr char lattice_letters_3[] = "pabcifr";

/// The centring vectors of a lattice are rows of one table, next to each other, 0, 0, 0 before the
/// others. Gives the number of its first row for a `which` of 0, of its last for 1.
int centring_index_3(int place, int which);

/// One row of the table; 360 is a whole cell edge.
const triple_3& centring_vector_3(int row);

/// The centring vectors of the lattice at a place but 0, 0, 0, for a loop.
struct centring_vectors_3 {
    explicit centring_vectors_3(int place_) : place(place_) {}

    const triple_3* begin() const { return &centring_vector_3(centring_index_3(place, 0)) + 1; }
    const triple_3* end() const { return &centring_vector_3(centring_index_3(place, 1)) + 1; }

    int place;
};

/// An operator moved by a vector, normalised.
xyz_op_3 centring_copy_3(const xyz_op_3& op, const triple_3& vector);

/// Appends the copies of the first `n` operators under one vector, but for those that the list has
/// already. All operators must be normalised.
void add_centring_copies(xyz_list_3& ops, int n, const triple_3& vector);

/// Completes a group: appends the copies of its operators under all vectors of a lattice, one of
/// "pabcifr" or "PABCIFR", but for those that are there. All operators must be normalised. Fails
/// with " Unknown lattice" and the letter.
void add_centring_copies(xyz_list_3& ops, char letter);

/// The place of a lattice letter, in either case. Fails with " Unknown lattice" and the letter.
int lattice_place_3(char letter);
