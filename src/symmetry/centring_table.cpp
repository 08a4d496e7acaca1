#include "symmetry/centring_table.h"

#include "foundation/except_3.h"
#include "foundation/sorted.h"

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

xyz_op_3 centring_copy_3(const xyz_op_3& op, const triple_3& vector) {
    xyz_op_3 copy = op;
    add_translation(copy, vector);
    normalise(copy);
    return copy;
}

void add_centring_copies(xyz_list_3& ops, int n, const triple_3& vector) {
    xyz_list_3 known(ops);
    sort_xyzs_3(known);
    xyz_list_3 copies;
    for (int i = 0; i < n; ++i) copies.add(centring_copy_3(ops[i], vector));
    group_record_3 equal_copies;
    group(copies, equal_copies);
    int_list_3 first_copies;
    run_minima(equal_copies, first_copies);
    for (int i = 0; i < n; ++i) {
        if (first_copies[equal_copies.group[i]] != i) continue;
        if (bsearch(known, copies[i]) == not_found) ops.add(copies[i]);
    }
}

void add_centring_copies(xyz_list_3& ops, char letter) {
    const int n = ops.n;
    for (const triple_3& vector : centring_vectors_3(lattice_place_3(letter))) {
        add_centring_copies(ops, n, vector);
    }
}

int lattice_place_3(char letter) {
    const int place = text_index(lower_char(letter), lattice_letters_3);
    if (place == not_found) (error_builder_3() << "Unknown lattice" << letter).fail();
    return place;
}
