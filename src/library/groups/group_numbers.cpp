#include "library/groups/group_numbers.h"

#include "foundation/except_3.h"
#include "foundation/heap_3.h"
#include "textin/file_in.h"

namespace {

constexpr int n_space_groups = 230;

bool starts_number(unsigned char c) { return c >= '0' && c <= '9'; }

void append_name(char_range_3 name, string_out& names) {
    for (const char* p = name.begin; p != name.end; ++p) {
        if (*p == 's') return;
    }
    names.separate();
    names << name;
}

// The setting whose names count: that of the bare number, else the last one.
string_3 names_of_record(char_range_3 body) {
    vstring_in in(body);
    string_out names;
    bool joined = false;
    bool last_slot = false;
    for (unsigned char c = in.peek_non_white(); c != 0; c = in.peek_non_white()) {
        const bool starts_slot = c == '-' || (c != '=' && !joined);
        if (starts_slot) {
            if (last_slot) break;
            names.clear();
        }
        joined = c == '=';
        if (c == '-' || c == '=') {
            in.advance();
        } else if (starts_number(c)) {
            last_slot = true;
            in.token();
        } else {
            append_name(in.token(), names);
        }
    }
    return names.text();
}

}  // namespace

void load_sg_names(vector_string_3& names) {
    names.new_n(n_space_groups);
    names.set_base(1);
    file_in file(catalogue_path(), file_in::data_file);
    while (file.peek_non_white() != 0) {
        const int number = file.read_int();
        if (number < 1 || number > n_space_groups) {
            (error_builder_3() << "File" << catalogue_path() << "is corrupt").fail();
        }
        if (!names[number].is_empty()) {
            file.skip_past('}');
            continue;
        }
        file.skip_past('{');
        const char* const body = file.current();
        file.skip_block('{', '}');
        names[number] = names_of_record({body, file.current() - 1});
    }
}

const vector_string_3& sg_name_table() {
    the_heap();  // what comes first goes last: the table gives its memory back to it
    static vector_string_3 table;
    if (table.n == 0) load_sg_names(table);
    return table;
}

int sg_number_of(const char* text) {
    sstring_in in(text);
    if (starts_number(in.peek_non_white())) return in.read_int();
    sg_file_names_3 names;
    names.set_symbol(text);
    const vector_string_3& table = sg_name_table();
    for (int i = 1; i <= n_space_groups; ++i) {
        if (sstring_in(table[i].data).find_tag(names.lower_symbol().data, 0)) return i;
    }
    return 0;
}
