#pragma once

#include "foundation/ctr_3.h"
#include "foundation/triple_3.h"
#include "textout/stream_out.h"

/// A symmetry operator x' = R x + t in integers, or a reflection operator, whose translation is 0.
/// A translation is in units of 1/360 of a cell edge; it is normalised when it lies in 0 to 359.
/// Arithmetic wraps at 32 bits; with the values in use it stays far from that.
struct xyz_op_3 {
    static constexpr int edge = 360;  ///< a whole lattice translation

    int& rot(int row, int column) { return rows[row][column]; }
    int rot(int row, int column) const { return rows[row][column]; }
    int& trans(int row) { return rows[row][3]; }
    int trans(int row) const { return rows[row][3]; }

    /// Time reversal, 1 or -1, where a reader met one; takes no part in any comparison.
    int tag = 0;
    int rows[3][4] = {};  ///< three coefficients and the translation of each row
};

using xyz_list_3 = list_0_3<xyz_op_3>;

// One operator

/// a becomes b applied after a: Rb Ra, Rb ta + tb. The tag becomes 0.
void compose(xyz_op_3& a, const xyz_op_3& b);
/// a becomes its inverse. The determinant must be 1 or -1.
void invert(xyz_op_3& a);
/// a becomes A a A^-1.
void conjugate(xyz_op_3& a, const xyz_op_3& A);
/// Negates the first n entries of each row: 3 leaves the translation, 4 negates it too.
void negate_rotation(xyz_op_3& a, int n);
void transpose_rotation(xyz_op_3& a);
/// Column c of the rotation of dst becomes column p[c] of src; translations and tag of dst stay.
void permute_columns(xyz_op_3& dst, const xyz_op_3& src, const triple_3& p);
void add_translation(xyz_op_3& a, const triple_3& v);
/// Brings the translations into 0 to 359.
void normalise(xyz_op_3& a);
/// The determinant of the rotation.
double determinant(const xyz_op_3& a);
/// A translation brought into 0 to 359.
int normalised_translation(int t);
bool is_identity_rotation(const xyz_op_3& a);
/// Whether rotation and translation are equal.
bool same_as(const xyz_op_3& a, const xyz_op_3& b);
bool same_rotation(const xyz_op_3& a, const xyz_op_3& b);
/// Lexicographic order over the twelve integers of rotation and translation, row by row.
bool less_than(const xyz_op_3& a, const xyz_op_3& b);
/// The smallest power of the rotation that is the identity, or 0 if none up to `most` is.
int rotation_order(const xyz_op_3& a, int most);

inline bool element_less(const xyz_op_3& a, const xyz_op_3& b) { return less_than(a, b); }
inline bool element_equal(const xyz_op_3& a, const xyz_op_3& b) { return same_as(a, b); }

// Lists

/// Sorts ascending by less_than.
void sort_xyzs_3(xyz_list_3& ops);
/// Sorts and keeps one of each run of equal operators; fewer than 2 operators stay unchanged.
void keep_unique_6(xyz_list_3& ops);
/// Whether both lists have the same operators at the same places.
bool equal_xyzs_3(const xyz_list_3& a, const xyz_list_3& b);
/// Appends left[k] applied after right[j], for each k and within it for each j.
void multiply_xyz_lists_3(xyz_list_3& out, const xyz_list_3& left, const xyz_list_3& right);
void normalise_xyzs_3(xyz_list_3& ops);

// Text

/// Writes a line feed, a tab and the operator: `-x+1/2, y, -z+1/4 ` with a blank at its end. Only
/// the sign of a coefficient is written.
void write_xyz(stream_out& stream, const xyz_op_3& a);

/// The text of a translation: `1/2`, `-1/4`, `0`. Above a half it is written as a negative
/// fraction. With `is_signed` a positive one has its plus. The text lasts until the next call.
const char* fraction_text(int t, bool is_signed);
