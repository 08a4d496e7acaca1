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

    bool operator==(const hkl_row_3&) const = default;
};

/// By h, where that is equal by k, then by l. Rows that differ only in multiplicity are equal.
inline bool element_less(const hkl_row_3& a, const hkl_row_3& b) {
    if (a.h != b.h) return a.h < b.h;
    if (a.k != b.k) return a.k < b.k;
    return a.l < b.l;
}

// Numbers of a table. Each has a blank in front, and more of them if it is shorter than four
// characters: "   -1   10". Line ends are up to the caller.

/// All four of them.
void write_row_4(const hkl_row_3& row, stream_out& stream);
/// The indices alone.
void write_row_3(const hkl_row_3& row, stream_out& stream);
void write_cell(int value, stream_out& stream);
/// The same, without a NUL, to `out`, where there must be room for 12 characters. Gives the end.
char* put_cell(int value, char* out);
