#include "library/groups/xyz_utilities.h"

#include <algorithm>

namespace {

xyz_op_3 unit_op() {
    xyz_op_3 op;
    for (int i = 0; i < 3; ++i) op.rot(i, i) = 1;
    return op;
}

// Wraps at 32 bits.
int rotated(const xyz_op_3& op, int row, const triple_3& v) {
    unsigned sum = 0;
    for (int i = 0; i < 3; ++i) {
        sum += static_cast<unsigned>(op.rot(row, i)) * static_cast<unsigned>(v[i]);
    }
    return static_cast<int>(sum);
}

// Appends the powers of g applied to the normalised x, which is the last of them.
int close_cycle(const xyz_op_3& g, xyz_op_3 x, xyz_list_3& ops, int most) {
    normalise(x);
    if (!append_cycle_3(ops, g, x, most)) return 0;
    x.tag = 0;
    ops.add(x);
    return 1;
}

constexpr int most_powers = 24;

}  // namespace

const xyz_list_3& identity_xyzs() {
    static const xyz_list_3 list = [] {
        xyz_list_3 identity;
        identity.add(unit_op());
        return identity;
    }();
    return list;
}

int smallest_translation(const xyz_list_3& ops, int axis) {
    int smallest = 0;
    for (const xyz_op_3& op : ops) {
        const int t = op.trans(axis);
        if (t != 0 && (smallest == 0 || t < smallest)) smallest = t;
    }
    return smallest;
}

void clear_axis(xyz_list_3& ops, int axis) {
    for (xyz_op_3& op : ops) std::fill(op.rows[axis], op.rows[axis] + 4, 0);
}

int axis_is_unit(const xyz_list_3& ops, int axis) {
    for (const xyz_op_3& op : ops) {
        for (int c = 0; c < 3; ++c) {
            if (op.rot(axis, c) != (c == axis)) return 0;
        }
    }
    return 1;
}

bool column_is_zero(const xyz_op_3& op, int column) {
    return op.rot(0, column) == 0 && op.rot(1, column) == 0 && op.rot(2, column) == 0;
}

void rotate_triple(triple_3& out, const xyz_op_3& op, int x, int y, int z) {
    for (int i = 0; i < 3; ++i) out[i] = rotated(op, i, {{x, y, z}});
}

void add_rotated_triple(triple_3& out, const xyz_op_3& op, int x, int y, int z) {
    for (int i = 0; i < 3; ++i) {
        const int term = rotated(op, i, {{x, y, z}});
        out[i] = static_cast<int>(static_cast<unsigned>(out[i]) + static_cast<unsigned>(term));
    }
}

int rotation_cycle(const xyz_op_3& g, xyz_op_3& h, xyz_list_3& ops) {
    const int first = ops.n;
    const int result = close_cycle(rotation_of(g), rotation_of(h), ops, most_powers);
    const int last = ops.last() - result;
    if (last >= first) h = ops[last];
    return result;
}

int close_cycles(const xyz_op_3& g, xyz_list_3& ops) {
    constexpr int most_cycle_products = 14;
    const xyz_op_3 generator = g;
    if (ops.n == 0) ops.add(unit_op());
    const int n = ops.n;
    for (int i = 0; i < n; ++i) {
        if (close_cycle(generator, ops[i], ops, most_cycle_products) == 0) return 0;
    }
    return 1;
}

int power_reaches(const xyz_op_3& op, const xyz_op_3& target) {
    xyz_op_3 power = unit_op();
    for (int i = 0; i < most_powers; ++i) {
        compose(power, op);
        if (same_rotation(power, target)) return 1;
        if (same_as(power, unit_op())) return 0;
    }
    return 0;
}
