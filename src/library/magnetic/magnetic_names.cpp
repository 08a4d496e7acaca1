#include "library/magnetic/magnetic_names.h"

#include "foundation/except_3.h"
#include "textin/data_dir.h"
#include "textin/file_in.h"

namespace {

constexpr char names_file[] = "magnetic_names.txt";

// The names of a record, in the order in which they count.
constexpr int n_names = 4;

// A line of the file.
struct name_record {
    char_range_3 names[n_names];
    int type;
    int family;
    int parent;
    char lattice;
};

name_record read_name_record(sstring_in& in) {
    name_record record = {};
    for (char_range_3& name : record.names) name = in.token();
    record.type = in.read_int();
    record.family = in.read_int();
    record.parent = in.read_int();
    record.lattice = static_cast<char>(in.get_non_white());
    in.skip_line();
    const bool is_complete =
        record.type >= 1 && record.type <= 4 && text_index(record.lattice, "PABCIFR") != not_found;
    if (!is_complete) (error_builder_3() << "Error in " << names_file).fail();
    return record;
}

magnetic_name_3 entry_of(const name_record& record) {
    magnetic_name_3 entry;
    string_3* const fields[n_names] = {&entry.bns_number, &entry.og_number, &entry.bns_symbol,
                                       &entry.og_symbol};
    for (int i = 0; i < n_names; ++i) *fields[i] = sstring_in::range_text(record.names[i]).text();
    entry.type = record.type;
    entry.family_number = record.family;
    entry.parent_number = record.parent;
    entry.lattice_letter = record.lattice;
    return entry;
}

magnetic_name_3 find_in(sstring_in& in, const char* name, const char* path) {
    string_3 wanted(name);
    wanted.remove_chars(" ");
    wanted.replace_char('\'', '^');
    name_record found = {};
    int rank = n_names;
    for (in.skip_white(); in.at_end() == 0 && rank > 0; in.skip_white()) {
        const name_record record = read_name_record(in);
        for (int i = 0; i < rank; ++i) {
            if (sstring_in::range_equal(record.names[i], wanted.data) == 0) continue;
            found = record;
            rank = i;
        }
    }
    if (rank < n_names) return entry_of(found);
    (error_builder_3() << "Cannot find magnetic space group" << name << "in file" << path).fail();
}

}  // namespace

magnetic_name_3 find_magnetic_group_3(const char* name) {
    const string_3 path = data_path(names_file);
    file_in file(path, file_in::data_file);
    return find_in(file, name, path.data);
}

magnetic_name_3 find_magnetic_group_3(const data_text_3& names, const char* name) {
    sstring_in in(names.text());
    return find_in(in, name, names_file);
}

bool read_magnetic_name_3(sstring_in& in, magnetic_name_3& group) {
    in.skip_white();
    if (in.at_end() != 0) return false;
    group = entry_of(read_name_record(in));
    return true;
}
