#pragma once

/// Three integers: the indices of a reflection, a centring vector, a permutation of axes.
struct triple_3 {
    int v[3];

    int& operator[](int i) { return v[i]; }
    int operator[](int i) const { return v[i]; }
    friend bool operator==(const triple_3&, const triple_3&) = default;
};

/// All permutations of three axes, ascending.
inline constexpr triple_3 axis_permutations_3[] = {{{0, 1, 2}}, {{0, 2, 1}}, {{1, 0, 2}},
                                                   {{1, 2, 0}}, {{2, 0, 1}}, {{2, 1, 0}}};

/// Lexicographic order.
inline bool element_less(const triple_3& a, const triple_3& b) {
    if (a.v[0] != b.v[0]) return a.v[0] < b.v[0];
    if (a.v[1] != b.v[1]) return a.v[1] < b.v[1];
    return a.v[2] < b.v[2];
}
