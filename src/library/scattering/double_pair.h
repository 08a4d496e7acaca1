#pragma once

#include <cstddef>

// Two doubles that are worked on by one instruction. The compilers of this project know such
// vectors for every processor, so that the code has no need of an optimiser that finds them.

using double_pair_3 __attribute__((vector_size(16))) = double;

/// Loads from any address of a double.
inline double_pair_3 load_pair(const double* p) { return double_pair_3{p[0], p[1]}; }

inline void store_pair(double* p, double_pair_3 v) {
    p[0] = v[0];
    p[1] = v[1];
}

inline double_pair_3 both(double v) { return double_pair_3{v, v}; }

inline double_pair_3 firsts(double_pair_3 a, double_pair_3 b) {
    return __builtin_shufflevector(a, b, 0, 2);
}

inline double_pair_3 seconds(double_pair_3 a, double_pair_3 b) {
    return __builtin_shufflevector(a, b, 1, 3);
}
