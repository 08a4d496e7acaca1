#include "library/magnetic/magnetic_groups.h"

#include <cstdint>

#include "foundation/except_3.h"
#include "foundation/sorted.h"
#include "sgfile/sg_reader.h"
#include "symmetry/centring_table.h"
#include "textin/data_dir.h"
#include "textin/data_text_3.h"
#include "textin/file_in.h"

namespace {

constexpr char magnetic_file[] = "shubnikovgroups.txt";

// Passes lines that aren't blank; a comment is.
void skip_lines(sstring_in& in, int n) {
    for (; n > 0 && in.at_end() == 0; --n) {
        in.skip_white();
        in.skip_line();
    }
}

// Reads the operators of one record, if the file has it.
void read_magnetic_record(sstring_in& in, const char* key, xyz_list_3& ops, string_3& name) {
    for (in.skip_white(); in.at_end() == 0; in.skip_white()) {
        const bool found = sstring_in::range_equal(in.token(), key) != 0;
        const char_range_3 second = in.token();
        in.skip_line();
        const int n = in.read_int();
        in.skip_line();
        if (!found) {
            skip_lines(in, n);
            continue;
        }
        name = sstring_in::range_text(second).text();
        for (int i = 0; i < n; ++i) {
            xyz_op_3 op;
            in.skip_white();
            load_xyz_op_3(in, op);
            ops.add(op);
        }
        return;
    }
}

bool is_opposite(int a, int b) { return (a == 1 && b == -1) || (a == -1 && b == 1); }

// Joins operators that are in the sorted list with both signs; gives the number of pairs.
int merge_signs(xyz_list_3& ops) {
    int_list_3 merged;
    merged.new_n_zero(ops.n);
    int n_pairs = 0;
    for (int i = 0; i + 1 < ops.n; ++i) {
        const int j = i + 1;
        if (!same_as(ops[i], ops[j])) continue;
        if (!is_opposite(ops[i].tag, ops[j].tag)) {
            (error_builder_3() << "Error in " << magnetic_file).fail();
        }
        ops[i].tag = both_signs_3;
        merged[j] = 1;
        ++n_pairs;
        i = j;
    }
    ops.remove_flagged(merged);
    return n_pairs;
}

// What there is to do after the record was read from `path`.
void complete_magnetic_group(xyz_list_3& ops, int n_before, const char* key, const char* path) {
    if (ops.n == n_before) {
        (error_builder_3() << "Cannot find magnetic space group" << key << "in file" << path)
            .fail();
    }
    normalise_xyzs_3(ops);
    sort_xyzs_3(ops);
    const int n_pairs = merge_signs(ops);
    if (n_pairs == ops.n) {
        (error_builder_3() << "Intensity of magnetic space group" << key << " is zero\n").fail();
    }
}

}  // namespace

void load_magnetic_group_3(xyz_list_3& ops, const char* key, string_3& name) {
    const string_3 path = data_path(magnetic_file);
    const int n_before = ops.n;
    {
        file_in file(path, file_in::data_file);
        read_magnetic_record(file, key, ops, name);
    }
    complete_magnetic_group(ops, n_before, key, path.data);
}

void load_magnetic_group_3(const data_text_3& groups, xyz_list_3& ops, const char* key,
                           string_3& name) {
    const int n_before = ops.n;
    sstring_in in(groups.text());
    read_magnetic_record(in, key, ops, name);
    complete_magnetic_group(ops, n_before, key, magnetic_file);
}

void add_centring_3(xyz_list_3& ops, char letter) {
    const int place = lattice_place_3(letter);
    xyz_list_3 all(ops);
    normalise_xyzs_3(all);
    for (const triple_3& vector : centring_vectors_3(place)) {
        for (int i = 0; i < ops.n; ++i) all.add(centring_copy_3(all[i], vector));
    }
    ops.take(all);
}

void write_moment_op(stream_out& stream, const xyz_op_3& op, char wrap, const char* prefix,
                     bool spaced) {
    const std::int64_t sign = std::int64_t{round_nearest(determinant(op))} * op.tag;
    string_out text;
    for (int i = 0; i < 3; ++i) {
        int signs[3];
        for (int c = 0; c < 3; ++c) signs[c] = sign_of_term(op.rot(i, c) * sign);
        write_terms(text, signs, 'm', "xyz");
        if (i < 2) text << ',';
        if (spaced) text << ' ';
    }
    if (prefix != nullptr) stream << prefix;
    if (wrap != ' ') stream << wrap;
    stream << text.text();
    if (wrap != ' ') stream << wrap;
}
