#include "symmetry/xyz_op_3.h"

#include <algorithm>
#include <utility>

#include "foundation/except_3.h"
#include "foundation/sorted.h"

namespace {

int wrapped(unsigned value) { return static_cast<int>(value); }
int wrapped_sum(int a, int b) {
    return wrapped(static_cast<unsigned>(a) + static_cast<unsigned>(b));
}
int wrapped_difference(int a, int b) {
    return wrapped(static_cast<unsigned>(a) - static_cast<unsigned>(b));
}
int wrapped_product(int a, int b) {
    return wrapped(static_cast<unsigned>(a) * static_cast<unsigned>(b));
}

// a0*b0 + a1*b1 + a2*b2
int dot(const int* a, int b0, int b1, int b2) {
    return wrapped_sum(wrapped_sum(wrapped_product(a[0], b0), wrapped_product(a[1], b1)),
                       wrapped_product(a[2], b2));
}

// The signed 2 by 2 minor that belongs to an entry.
int cofactor(const xyz_op_3& a, int row, int column) {
    const int r1 = (row + 1) % 3;
    const int r2 = (row + 2) % 3;
    const int c1 = (column + 1) % 3;
    const int c2 = (column + 2) % 3;
    return wrapped_difference(wrapped_product(a.rot(r1, c1), a.rot(r2, c2)),
                              wrapped_product(a.rot(r1, c2), a.rot(r2, c1)));
}

}  // namespace

void compose(xyz_op_3& a, const xyz_op_3& b) {
    xyz_op_3 product;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 4; ++j) {
            product.rows[i][j] = dot(b.rows[i], a.rows[0][j], a.rows[1][j], a.rows[2][j]);
        }
        product.trans(i) = wrapped_sum(product.trans(i), b.trans(i));
    }
    a = product;
}

void invert(xyz_op_3& a) {
    const xyz_op_3 old = a;
    const double reciprocal = 1.0 / determinant(a);
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
            a.rot(i, j) = round_nearest(cofactor(old, j, i) * reciprocal);
        }
    }
    for (int i = 0; i < 3; ++i) {
        a.trans(i) =
            wrapped_difference(0, dot(a.rows[i], old.trans(0), old.trans(1), old.trans(2)));
    }
}

void conjugate(xyz_op_3& a, const xyz_op_3& A) {
    xyz_op_3 result = A;
    invert(result);
    compose(result, a);
    compose(result, A);
    a = result;
}

void negate_rotation(xyz_op_3& a, int n) {
    for (auto& row : a.rows) {
        for (int j = 0; j < n; ++j) row[j] = wrapped_difference(0, row[j]);
    }
}

void transpose_rotation(xyz_op_3& a) {
    std::swap(a.rot(0, 1), a.rot(1, 0));
    std::swap(a.rot(0, 2), a.rot(2, 0));
    std::swap(a.rot(1, 2), a.rot(2, 1));
}

void permute_columns(xyz_op_3& dst, const xyz_op_3& src, const triple_3& p) {
    for (int i = 0; i < 3; ++i) {
        for (int c = 0; c < 3; ++c) dst.rot(i, c) = src.rot(i, p[c]);
    }
}

void add_translation(xyz_op_3& a, const triple_3& v) {
    for (int i = 0; i < 3; ++i) a.trans(i) = wrapped_sum(a.trans(i), v[i]);
}

int normalised_translation(int t) {
    t %= xyz_op_3::edge;
    return t < 0 ? t + xyz_op_3::edge : t;
}

void normalise(xyz_op_3& a) {
    for (int i = 0; i < 3; ++i) a.trans(i) = normalised_translation(a.trans(i));
}

double determinant(const xyz_op_3& a) {
    return dot(a.rows[0], cofactor(a, 0, 0), cofactor(a, 0, 1), cofactor(a, 0, 2));
}

bool is_identity_rotation(const xyz_op_3& a) {
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
            if (a.rot(i, j) != (i == j)) return false;
        }
    }
    return true;
}

bool same_as(const xyz_op_3& a, const xyz_op_3& b) {
    return std::memcmp(a.rows, b.rows, sizeof a.rows) == 0;
}

bool same_rotation(const xyz_op_3& a, const xyz_op_3& b) {
    for (int i = 0; i < 3; ++i) {
        if (!std::equal(a.rows[i], a.rows[i] + 3, b.rows[i])) return false;
    }
    return true;
}

bool less_than(const xyz_op_3& a, const xyz_op_3& b) {
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 4; ++j) {
            if (a.rows[i][j] != b.rows[i][j]) return a.rows[i][j] < b.rows[i][j];
        }
    }
    return false;
}

int rotation_order(const xyz_op_3& a, int most) {
    xyz_op_3 power = a;
    for (int order = 1; order <= most; ++order) {
        if (is_identity_rotation(power)) return order;
        compose(power, a);
    }
    return 0;
}

void sort_xyzs_3(xyz_list_3& ops) { sort(ops); }

void keep_unique_6(xyz_list_3& ops) { sort_unique(ops); }

bool equal_xyzs_3(const xyz_list_3& a, const xyz_list_3& b) {
    return a.n == b.n && std::equal(a.begin(), a.end(), b.begin(), same_as);
}

void multiply_xyz_lists_3(xyz_list_3& out, const xyz_list_3& left, const xyz_list_3& right) {
    for (const xyz_op_3& last : left) {
        for (const xyz_op_3& op : right) {
            xyz_op_3& product = out.add();
            product = op;
            compose(product, last);
        }
    }
}

void multiply_group_3(xyz_list_3& ops, const xyz_list_3& powers, std::int64_t most,
                      const char* message) {
    if (std::int64_t{powers.n} * ops.n > most) fail_with(message);
    xyz_list_3 products;
    products.set_max_n(200, false);
    multiply_xyz_lists_3(products, powers, ops);
    ops.take(products);
}

bool append_cycle_3(xyz_list_3& out, xyz_op_3 g, xyz_op_3 x, int most) {
    xyz_op_3 product = x;
    for (int i = 0; i < most; ++i) {
        compose(product, g);
        normalise(product);
        if (same_as(product, x)) return true;
        out.add(product);
    }
    return false;
}

void normalise_xyzs_3(xyz_list_3& ops) {
    for (xyz_op_3& op : ops) normalise(op);
}

xyz_op_3 rotation_of(const xyz_op_3& op) {
    xyz_op_3 rotation = op;
    for (int i = 0; i < 3; ++i) rotation.trans(i) = 0;
    return rotation;
}

xyz_list_3 rotations_of(const xyz_list_3& ops) {
    xyz_list_3 rotations(ops);
    for (xyz_op_3& op : rotations) op = rotation_of(op);
    return rotations;
}

const char* fraction_text(int t, bool is_signed) {
    static string_out text;
    if (t == 0) return "0";
    int numerator = t < 0 ? t + xyz_op_3::edge : t;
    int denominator = xyz_op_3::edge;
    for (int d = 2; d <= 12; ++d) {
        while (numerator % d == 0 && denominator % d == 0) {
            numerator /= d;
            denominator /= d;
        }
    }
    if (numerator > denominator / 2.0) numerator -= denominator;
    text.clear();
    if (is_signed && numerator >= 0) text << '+';
    text << numerator << '/' << denominator;
    return text.text();
}

bool write_terms(string_out& out, const int signs[3], char prefix, const char* letters) {
    bool first = true;
    for (int c = 0; c < 3; ++c) {
        if (signs[c] == 0) continue;
        if (signs[c] < 0) {
            out << '-';
        } else if (!first) {
            out << '+';
        }
        if (prefix != 0) out << prefix;
        out << letters[c];
        first = false;
    }
    return !first;
}

int sign_of_term(std::int64_t coefficient) {
    if (coefficient == 0) return 0;
    return coefficient == -1 ? -1 : 1;
}

void write_xyz(stream_out& stream, const xyz_op_3& a) {
    string_out text;
    text << "\n\t";
    for (int i = 0; i < 3; ++i) {
        int signs[3];
        for (int c = 0; c < 3; ++c) signs[c] = sign_of_term(a.rot(i, c));
        write_terms(text, signs, 0, "xyz");
        if (a.trans(i) != 0) text << fraction_text(a.trans(i), true);
        if (i < 2) text << ',';
        text << ' ';
    }
    stream << text.text();
}
