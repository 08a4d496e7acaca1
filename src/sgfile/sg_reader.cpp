#include "sgfile/sg_reader.h"

#include <limits>

#include "foundation/except_3.h"
#include "textin/file_in.h"

namespace {

constexpr char bad_hkls[] = "Error loading symmetry hkls";

// One row of an operator: the text up to its delimiter, which isn't passed.
vstring_in cut_row(sstring_in& in, const char* message) {
    const char* const begin = in.current();
    if (!in.skip_to_field_end()) fail_with(message);
    return vstring_in(begin, in.current());
}

struct term_start {
    int sign;
    char c;  // NUL if only a sign was left
};

// Passes the sign of a term and its first character.
term_start read_term_start(vstring_in& row) {
    const char c = static_cast<char>(row.get_non_white());
    if (c != '+' && c != '-') return {1, c};
    return {c == '-' ? -1 : 1, static_cast<char>(row.get_non_white())};
}

// A fraction whose first digit was passed, in 1/360.
int read_fraction(vstring_in& row, int sign) {
    row.back();
    const char* const begin = row.current();
    if (!row.find_char('/', stay_on_found)) fail_with(malformed_xyzs_3);
    const int numerator = int_of_text(sstring_in::range_text({begin, row.current()}).text());
    row.advance();
    const int denominator = row.read_int();
    const unsigned product = static_cast<unsigned>(numerator) * static_cast<unsigned>(sign) *
                             static_cast<unsigned>(xyz_op_3::edge);
    const int dividend = static_cast<int>(product);
    if (denominator == 0) fail_with(malformed_xyzs_3);
    if (denominator == -1 && dividend == std::numeric_limits<int>::min())
        fail_with(malformed_xyzs_3);
    return dividend / denominator;
}

void read_xyz_row(vstring_in row, int* op_row) {
    while (row.peek_non_white() != 0) {
        const auto [sign, c] = read_term_start(row);
        const int column = text_index(c, "xyz");
        if (column != not_found) {
            op_row[column] = sign;
        } else if (c >= '0' && c <= '9') {
            op_row[3] = read_fraction(row, sign);
        } else {
            fail_with(malformed_xyzs_3);
        }
    }
}

void read_hkl_row(vstring_in row, int* op_row) {
    while (row.peek_non_white() != 0) {
        const auto [sign, c] = read_term_start(row);
        const int column = text_index(c, "hkl");
        if (column != not_found) {
            op_row[column] += sign;
        } else if (c != '0') {
            fail_with(bad_hkls);
        }
    }
}

void load_hkl_op(sstring_in& in, xyz_op_3& op) {
    for (auto& op_row : op.rows) {
        read_hkl_row(cut_row(in, bad_hkls), op_row);
        in.advance();
        in.skip_newline();
    }
}

// Reads a block whose opening brace comes next, operator by operator.
template <typename Load>
void load_ops(sstring_in& in, xyz_list_3& ops, Load load) {
    constexpr int first_room = 96;
    in.skip_past('{');
    if (ops.n == 0) ops.set_max_n(first_room, false);
    while (in.more_in_block()) {
        xyz_op_3& op = ops.add();
        op = xyz_op_3();
        load(in, op);
    }
    ops.set_max_n(ops.n, true);
}

}  // namespace

void load_xyz_op_3(sstring_in& in, xyz_op_3& op) {
    const int tag = op.tag;
    op = xyz_op_3();
    op.tag = tag;
    for (int i = 0; i < 3; ++i) {
        read_xyz_row(cut_row(in, malformed_xyzs_3), op.rows[i]);
        if (in.get() == ',' && i == 2) op.tag = in.read_int();
        in.skip_newline();
    }
}

void load_xyzs_3(sstring_in& in, xyz_list_3& ops) {
    in.find_tag("xyzs", throw_on_failure);
    load_ops(in, ops, load_xyz_op_3);
}

void load_hkl_ops_3(sstring_in& in, xyz_list_3& ops) { load_ops(in, ops, load_hkl_op); }

void load_sg_file_xyzs_3(const char* sg_path, xyz_list_3& ops) {
    file_in file(sg_path, file_in::data_file);
    load_xyzs_3(file, ops);
}

int has_hkl_section_3(const char* path) {
    int found = 0;
    failure_of([&] {
        file_in file(path, file_in::data_file);
        found = file.find_tag("hkl", 0);
    });
    return found;
}
