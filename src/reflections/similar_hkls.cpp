#include "reflections/similar_hkls.h"

#include "foundation/except_3.h"
#include "foundation/sorted.h"
#include "sgfile/sg_reader.h"
#include "textin/file_in.h"
#include "textout/file_out.h"
#include "textout/sstring_out.h"

namespace {

// Column `column` of a candidate from the text of one new index, such as `h+k` or `-l`.
void set_column(xyz_op_3& form, int column, const char* text) {
    int sign = 1;
    for (; *text != 0; ++text) {
        const int row = text_index(*text, "hkl");
        if (row != not_found) form.rot(row, column) = sign;
        sign = *text == '-' ? -1 : 1;
    }
}

void add_form(xyz_list_3& table, const char* h, const char* k, const char* l) {
    xyz_op_3& form = table.add();
    set_column(form, 0, h);
    set_column(form, 1, k);
    set_column(form, 2, l);
}

// The permutations of the indices with all signs.
void add_permuted_forms(xyz_list_3& table) {
    for (const triple_3& p : axis_permutations_3) {
        for (int signs = 0; signs < 8; ++signs) {
            xyz_op_3& form = table.add();
            for (int i = 0; i < 3; ++i) form.rot(p[i], i) = (signs & (4 >> i)) != 0 ? -1 : 1;
        }
    }
}

void add_hexagonal_forms(xyz_list_3& table) {
    constexpr const char* sums[] = {"h+k", "h-k", "-h+k", "-h-k"};
    constexpr const char* singles[2][2] = {{"k", "-k"}, {"h", "-h"}};
    for (const char* l : {"l", "-l"}) {
        for (const auto& pair : singles) {
            for (const char* sum : sums) {
                for (const char* single : pair) add_form(table, sum, single, l);
            }
        }
        for (const auto& pair : singles) {
            for (const char* sum : sums) {
                for (const char* single : pair) add_form(table, single, sum, l);
            }
        }
    }
}

xyz_op_3 negative_of(const xyz_op_3& op) {
    xyz_op_3 negative = op;
    negate_rotation(negative, 3);
    return negative;
}

// Whether a sorted list holds the negative of an operator.
bool holds_negative(const xyz_list_3& sorted, const xyz_op_3& op) {
    return bsearch(sorted, negative_of(op)) != not_found;
}

// Each operator followed by `last`.
void composed_with(const xyz_list_3& ops, const xyz_op_3& last, xyz_list_3& out) {
    out = ops;
    for (xyz_op_3& op : out) compose(op, last);
}

// The place of the first operator that undoes the rotation `form`, or not_found.
int find_inverse(const xyz_list_3& ops, const xyz_op_3& form) {
    xyz_op_3 inverse = form;
    invert(inverse);
    for (int i = 0; i < ops.n; ++i) {
        if (same_rotation(ops[i], inverse)) return i;
    }
    return not_found;
}

// Whether the group, as a sorted list, stays the same under `form` with a suitable translation.
// `work` is scratch.
bool takes_in(const xyz_list_3& ops, const xyz_op_3& form, xyz_list_3& work) {
    const int unit = find_inverse(ops, form);
    if (unit == not_found) return false;
    composed_with(ops, form, work);
    xyz_op_3 shift = work[unit];
    negate_rotation(shift, 4);
    for (xyz_op_3& op : work) {
        add_translation(op, {{shift.trans(0), shift.trans(1), shift.trans(2)}});
        normalise(op);
    }
    sort_xyzs_3(work);
    return equal_xyzs_3(ops, work);
}

void find_general_class(const xyz_list_3& ops, xyz_list_3& found) {
    xyz_list_3 accepted;  // ascending
    xyz_list_3 work;
    for (const xyz_op_3& form : hkl_form_table_3()) {
        if (holds_negative(accepted, form) || !takes_in(ops, form, work)) continue;
        int place = accepted.n;
        while (place > 0 && less_than(form, accepted[place - 1])) --place;
        accepted.insert_at(form, place);
        found.add(form);
    }
}

// The rotations of a list, sorted; each of them once if all occur equally often, as in a group.
xyz_list_3 even_rotations(const xyz_list_3& ops) {
    xyz_list_3 rotations = rotations_of(ops);
    group_record_3 record;
    group(rotations, record);
    for (int count : record.count) {
        if (count != record.count[0]) return rotations;
    }
    apply_index(rotations, record.unique);
    return rotations;
}

// Accepts those of the candidates, which are those of the general class with the old indices that
// the class `name` lacks struck out, that all take the rotations to the same list.
void find_special_class(const xyz_list_3& rotations, const char* name, const xyz_list_3& general,
                        xyz_list_3& found) {
    xyz_list_3 candidates(general);
    for (int i = 0; i < 3; ++i) {
        if (name[i] != '0') continue;
        for (xyz_op_3& op : candidates) op.rot(i, 0) = op.rot(i, 1) = op.rot(i, 2) = 0;
    }
    keep_unique_6(candidates);
    xyz_list_3 reference;
    xyz_list_3 work;
    for (const xyz_op_3& candidate : candidates) {
        if (found.n != 0 && holds_negative(found, candidate)) continue;
        composed_with(rotations, candidate, work);
        sort_xyzs_3(work);
        if (found.n == 0) reference = work;
        if (equal_xyzs_3(work, reference)) found.add(candidate);
    }
}

}  // namespace

const xyz_list_3& hkl_form_table_3() {
    static const xyz_list_3 table = [] {
        xyz_list_3 forms;
        forms.set_max_n(112, false);
        add_permuted_forms(forms);
        add_hexagonal_forms(forms);
        return forms;
    }();
    return table;
}

void similar_hkls_3(const xyz_list_3& ops, class_lists_3& classes) {
    classes.new_n(n_hkl_classes_3);
    find_general_class(ops, classes[0]);
    const xyz_list_3 rotations = even_rotations(ops);
    for (int i = 1; i < n_hkl_classes_3; ++i) {
        find_special_class(rotations, hkl_class_names_3()[i].data, classes[0], classes[i]);
    }
    for (xyz_list_3& list : classes) {
        for (xyz_op_3& op : list) transpose_rotation(op);
    }
}

namespace {

void write_row(string_out& out, const xyz_op_3& op, int row) {
    int signs[3];
    for (int c = 0; c < 3; ++c) signs[c] = (op.rot(row, c) > 0) - (op.rot(row, c) < 0);
    if (!write_terms(out, signs, 0, "hkl")) out << '0';
}

void write_class(stream_out& stream, const char* name, const xyz_list_3& ops) {
    string_out out;
    out << '\n' << name << "\n{\n";
    for (const xyz_op_3& op : ops) {
        out << '\t';
        write_row(out, op, 0);
        out << ", ";
        write_row(out, op, 1);
        out << ", ";
        write_row(out, op, 2);
        out << '\n';
    }
    out << "} " << ops.n;
    stream << out.text();
}

}  // namespace

void out_similar_hkls_3(stream_out& stream, const class_lists_3& classes) {
    stream << "\n\n' Note: Friedel pairs are not included in the following";
    if (classes.n != n_hkl_classes_3) fail_with("Error in out_similar_hkls_3");
    for (int i = 0; i < n_hkl_classes_3; ++i) {
        write_class(stream, hkl_class_names_3()[i].data, classes[i]);
    }
}

void add_similar_hkls_3(const xyz_list_3& ops, stream_out& stream) {
    class_lists_3 classes;
    similar_hkls_3(ops, classes);
    out_similar_hkls_3(stream, classes);
}

void append_hhh_3(const char* sg_path) {
    xyz_list_3 ops;
    {
        file_in file(sg_path, file_in::data_file);
        if (file.find_tag("hkl", 0)) fail_with("hhh details already in *.sg file");
        file.set_position(0);
        load_xyzs_3(file, ops);
    }
    normalise_xyzs_3(ops);
    sort_xyzs_3(ops);
    sstring_out text;  // nothing can fail half way once the file is open
    add_similar_hkls_3(ops, text);
    file_out stream(sg_path, 0);
    stream.set_mode("a+b");
    stream.file_io::open(open_or_throw);
    stream << text.text();
    stream.finish();
}
