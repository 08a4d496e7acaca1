#include "reflections/crystal_system.h"

#include "foundation/except_3.h"
#include "foundation/sorted.h"

namespace {

constexpr int highest_order = 24;

// The order of a rotation; one beyond the highest that is tried where none is found.
int order_of(const xyz_op_3& op) {
    const int order = rotation_order(op, highest_order);
    return order == 0 ? highest_order + 1 : order;
}

// Drops the rotation of larger order of each pair of opposites, or the later one.
void drop_opposites(xyz_list_3& rotations) {
    int_list_3 paired;
    int_list_3 dropped;
    paired.new_n_zero(rotations.n);
    dropped.new_n_zero(rotations.n);
    for (int i = 0; i + 1 < rotations.n; ++i) {
        if (paired[i] != 0) continue;
        xyz_op_3 negative = rotations[i];
        negate_rotation(negative, 3);
        const int j = bsearch(rotations, negative, i + 1, rotations.last());
        if (j == not_found) continue;
        paired[j] = 1;
        dropped[order_of(rotations[i]) > order_of(rotations[j]) ? i : j] = 1;
    }
    rotations.remove_flagged(dropped);
}

// How many cyclic groups of each order the rotations form.
int_list_3 count_cyclic_groups(const xyz_list_3& rotations) {
    int_list_3 counts;
    int_list_3 marked;
    counts.new_n_zero(highest_order + 1);
    marked.new_n_zero(rotations.n);
    for (int i = 0; i < rotations.n; ++i) {
        if (marked[i] != 0) continue;
        xyz_op_3 power = rotations[i];
        int order = 1;
        for (;; ++order) {
            for (int j = i + 1; j < rotations.n; ++j) {
                if (same_rotation(rotations[j], power)) marked[j] = 1;
            }
            if (is_identity_rotation(power) || order == highest_order) break;
            compose(power, rotations[i]);
        }
        ++counts[order];
    }
    return counts;
}

}  // namespace

int crystal_system_of_3(const xyz_list_3& ops) {
    xyz_list_3 rotations = rotations_of(ops);
    keep_unique_6(rotations);
    drop_opposites(rotations);
    const int_list_3 counts = count_cyclic_groups(rotations);
    if (counts[3] == 4) return 6;
    if (counts[6] == 1) return 5;
    if (counts[3] == 1) return 4;
    if (counts[4] != 0) return 3;
    if (counts[2] == 3) return 2;
    if (counts[2] == 1) return 1;
    if (counts[1] == 1) return 0;
    fail_with("Cannot find Crystal System from xyz's");
}
