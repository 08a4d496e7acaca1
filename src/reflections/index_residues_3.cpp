#include "reflections/index_residues_3.h"

#include <numeric>

void index_residues_3::set_up(const xyz_list_3& ops) {
    for (int i = 0; i < 3; ++i) {
        int step = xyz_op_3::edge;
        for (const xyz_op_3& op : ops) step = std::gcd(step, op.trans(i) % xyz_op_3::edge);
        period_[i] = xyz_op_3::edge / step;
    }
}
