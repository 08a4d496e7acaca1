#include "symmetry/centring_table.h"

namespace {

constexpr triple_3 vectors[16] = {
    {{0, 0, 0}},                                                         // p
    {{0, 0, 0}}, {{0, 180, 180}},                                        // a
    {{0, 0, 0}}, {{180, 0, 180}},                                        // b
    {{0, 0, 0}}, {{180, 180, 0}},                                        // c
    {{0, 0, 0}}, {{180, 180, 180}},                                      // i
    {{0, 0, 0}}, {{180, 180, 0}},   {{180, 0, 180}},   {{0, 180, 180}},  // f
    {{0, 0, 0}}, {{240, 120, 120}}, {{120, 240, 240}},                   // r
};

constexpr int bounds[7][2] = {{0, 0}, {1, 2}, {3, 4}, {5, 6}, {7, 8}, {9, 12}, {13, 15}};

}  // namespace

int centring_index_3(int place, int which) { return bounds[place][which]; }

const triple_3& centring_vector_3(int row) { return vectors[row]; }
