#include "group/symop.h"

namespace lomar {

symop operator*(const symop& a, const symop& b) {
    return {a.rot * b.rot, a.rot * b.trans + a.trans, a.time * b.time};
}

symop inverse(const symop& op) {
    const int_matrix back = to_integers(inverse(to_fractions(op.rot)));
    return {back, fraction_vector{} - back * op.trans, op.time};
}

symop modulo_lattice(const symop& op) { return {op.rot, modulo_one(op.trans), op.time}; }

fraction_vector operator*(const symop& op, const fraction_vector& point) {
    return op.rot * point + op.trans;
}

namespace {

std::string row_text(const std::array<int, 3>& row, const fraction& shift) {
    std::string result;
    for (std::size_t i = 0; i < 3; ++i) {
        if (row[i] == 0) continue;
        if (row[i] > 0 && !result.empty()) result += '+';
        if (row[i] == -1) {
            result += '-';
        } else if (row[i] != 1) {
            result += std::to_string(row[i]);
        }
        result += "xyz"[i];
    }
    if (!shift.is_zero() || result.empty()) {
        if (shift.num() > 0 && !result.empty()) result += '+';
        result += shift.text();
    }
    return result;
}

}  // namespace

std::string xyz_text(const symop& op) {
    return row_text(op.rot[0], op.trans[0]) + "," + row_text(op.rot[1], op.trans[1]) + "," +
           row_text(op.rot[2], op.trans[2]);
}

std::string xyzt_text(const symop& op) { return xyz_text(op) + (op.time < 0 ? ",-1" : ",1"); }

int rotation_order(const int_matrix& rot) {
    int_matrix power = rot;
    for (int n = 1; n <= 6; ++n) {
        if (power == unit_matrix) return n;
        if (n < 6) power = power * rot;
    }
    return 0;
}

}  // namespace lomar
