#pragma once

#include <string>
#include <vector>

#include "group/fraction.h"

namespace lomar {

/// A symmetry operator x' = W x + w, with integers in W and exact fractions in w, and with time
/// reversal where a group is magnetic.
struct symop {
    int_matrix rot = unit_matrix;  ///< W, row by row
    fraction_vector trans;         ///< w, in parts of the cell edges
    int time = 1;                  ///< -1 with time reversal

    friend bool operator==(const symop& a, const symop& b) = default;
    friend std::strong_ordering operator<=>(const symop& a, const symop& b) = default;
};

/// a after b: (Wa Wb, Wa wb + wa), times multiplied. Nothing is reduced.
symop operator*(const symop& a, const symop& b);
/// Throws std::domain_error when the inverse of W is not whole.
symop inverse(const symop& op);
/// The operator with its translation in [0, 1).
symop modulo_lattice(const symop& op);
/// Where the operator takes a point.
fraction_vector operator*(const symop& op, const fraction_vector& point);

/// The operator as text: letters first, fraction last, lowest terms, no blanks:
/// `-x,y+1/2,-z+1/2`. A coefficient beyond one is written before its letter: `2x`.
std::string xyz_text(const symop& op);
/// As xyz_text, with the time reversal of magnetic operators as a fourth field: `x,y,z,-1`.
std::string xyzt_text(const symop& op);

/// The smallest n from 1 to 6 with W^n = 1; 0 if there is none, so that no crystal has W.
int rotation_order(const int_matrix& rot);

}  // namespace lomar
