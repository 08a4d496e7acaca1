#pragma once

#include "textout/stream_out.h"

/// One reflection of a list: its indices and its multiplicity.
struct hkl_row_3 {
    hkl_row_3() = default;
    hkl_row_3(int h_, int k_, int l_, int multiplicity_)
        : h(h_), k(k_), l(l_), multiplicity(multiplicity_) {}

    int h;
    int k;
    int l;
    int multiplicity = 1;
};

/// Lexicographic order by h, k, l; the multiplicity doesn't count.
inline bool element_less(const hkl_row_3& a, const hkl_row_3& b) {
    if (a.h != b.h) return a.h < b.h;
    if (a.k != b.k) return a.k < b.k;
    return a.l < b.l;
}

// Integers of a table, each right-aligned in four columns behind one blank, and wider only if it
// needs that. No line end is added.

/// h, k, l and the multiplicity.
void write_row_4(const hkl_row_3& row, stream_out& stream);
/// h, k and l.
void write_row_3(const hkl_row_3& row, stream_out& stream);
void write_cell(int value, stream_out& stream);
