#pragma once

#include "foundation/ctr_3.h"
#include "foundation/string_out.h"
#include "foundation/triple_3.h"
#include "textout/stream_out.h"

/// A symmetry operator x' = R x + t in integers, or a reflection operator, whose translation is 0.
/// The units of t are 1/360 of a cell edge, which makes all its fractions whole. Operations don't
/// bring t back to 0 to 359 unless they say so; "normalised" means that it was. Sums and products
/// beyond 32 bits wrap around, which no operator of a group gets near.
struct xyz_op_3 {
    static constexpr int edge = 360;  ///< a whole lattice translation

    int& rot(int row, int column) { return rows[row][column]; }
    int rot(int row, int column) const { return rows[row][column]; }
    int& trans(int row) { return rows[row][3]; }
    int trans(int row) const { return rows[row][3]; }

    /// Time reversal, 1 or -1, where a reader met one. Operators that differ in it are equal.
    int tag = 0;
    int rows[3][4] = {};  ///< row i is R[i][0], R[i][1], R[i][2], t[i]
};

using xyz_list_3 = list_0_3<xyz_op_3>;

// One operator

/// Applies b after a: a = (Rb Ra, Rb ta + tb). Clears the tag.
void compose(xyz_op_3& a, const xyz_op_3& b);
/// Inverts a, which stays in integers only if its determinant is 1 or -1, as in any group.
void invert(xyz_op_3& a);
/// Takes a to other axes: a = A a A^-1.
void conjugate(xyz_op_3& a, const xyz_op_3& A);
/// Multiplies by the inversion: R = -R with n 3, and t = -t as well with n 4.
void negate_rotation(xyz_op_3& a, int n);
void transpose_rotation(xyz_op_3& a);
/// Exchanges columns of a rotation: column p[c] of src becomes column c of dst. The rest of dst
/// isn't changed.
void permute_columns(xyz_op_3& dst, const xyz_op_3& src, const triple_3& p);
void add_translation(xyz_op_3& a, const triple_3& v);
/// Takes whole cell edges off t until each part of it is from 0 to 359.
void normalise(xyz_op_3& a);
/// det R, which is exact: 1 or -1 in a group.
double determinant(const xyz_op_3& a);
/// t modulo 360, never negative.
int normalised_translation(int t);
bool is_identity_rotation(const xyz_op_3& a);
/// Whether a and b have the same R and the same t. Normalise them before.
bool same_as(const xyz_op_3& a, const xyz_op_3& b);
bool same_rotation(const xyz_op_3& a, const xyz_op_3& b);
/// Lexicographic order of the rows: R[0][0] counts most, t[2] least.
bool less_than(const xyz_op_3& a, const xyz_op_3& b);
/// The least k from 1 to `most` with R^k = 1, or 0 if there is none.
int rotation_order(const xyz_op_3& a, int most);

inline bool element_less(const xyz_op_3& a, const xyz_op_3& b) { return less_than(a, b); }
inline bool element_equal(const xyz_op_3& a, const xyz_op_3& b) { return same_as(a, b); }

// Lists

/// Puts the operators into the order of less_than.
void sort_xyzs_3(xyz_list_3& ops);
/// Sorts and drops repeated operators.
void keep_unique_6(xyz_list_3& ops);
/// Whether the lists agree operator for operator; sort them to compare groups.
bool equal_xyzs_3(const xyz_list_3& a, const xyz_list_3& b);
/// Appends all products left[k] right[j], where right[j] acts first; j runs faster than k.
void multiply_xyz_lists_3(xyz_list_3& out, const xyz_list_3& left, const xyz_list_3& right);
/// Puts the products of `powers` and `ops` in the place of `ops`; where that would be more than
/// `most`, fails with the message.
void multiply_group_3(xyz_list_3& ops, const xyz_list_3& powers, std::int64_t most,
                      const char* message);
/// Appends g x, g g x, ... each normalised, up to the one before x comes back, and gives true; or
/// false if `most` products didn't lead back to x, which must be normalised.
bool append_cycle_3(xyz_list_3& out, xyz_op_3 g, xyz_op_3 x, int most);
void normalise_xyzs_3(xyz_list_3& ops);
/// The operators with translations of 0.
xyz_op_3 rotation_of(const xyz_op_3& op);
xyz_list_3 rotations_of(const xyz_list_3& ops);

// Text

/// What reading an operator fails with.
inline constexpr char malformed_xyzs_3[] = "Error loading symmetry xyz's";

/// Writes a sum such as `-mx+my`: for each sign that isn't 0 the sign, a plus only after another
/// term, then `prefix`, unless it is NUL, and the letter. Gives whether there was any.
bool write_terms(string_out& out, const int signs[3], char prefix, const char* letters);
/// What write_xyz makes of a coefficient: -1 for -1, 1 for any other but 0.
int sign_of_term(std::int64_t coefficient);

/// Writes an operator on a new line, with a tab before it and a blank after it: `x-y, -y, -z-1/3 `.
/// Of a coefficient only the sign shows, so a 2 would look like a 1; no setting of the catalogue
/// has one.
void write_xyz(stream_out& stream, const xyz_op_3& a);

/// A translation as text: `1/2`, `-1/4`, `0`. Above a half it is written as a negative
/// fraction. With `is_signed` a positive one has its plus. Use it before the next call, which
/// writes to the same place.
const char* fraction_text(int t, bool is_signed);
