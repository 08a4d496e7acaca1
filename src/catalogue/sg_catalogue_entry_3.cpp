#include "catalogue/sg_catalogue_entry_3.h"

#include "foundation/except_3.h"
#include "textin/file_in.h"

namespace {

constexpr int n_slots = 6;
constexpr const char* monoclinic_axes[n_slots] = {"abc", "cmba", "cab", "acmb", "bca", "mbac"};
constexpr const char* orthorhombic_axes[n_slots] = {"abc", "bamc", "cab", "mcba", "bca", "amcb"};
constexpr const char* unique_axes[n_slots] = {"y", "y", "z", "z", "x", "x"};

bool is_monoclinic(int number) { return number >= 3 && number <= 15; }

const char* axes_of_slot(int number, int slot) {
    if (is_monoclinic(number)) return monoclinic_axes[slot];
    if (number >= 16 && number <= 74) return orthorhombic_axes[slot];
    return "abc";
}

// The next token in the body of a record that names a setting, with its slot; false at the end.
// A main name is noted in `main_name`.
struct name_scan {
    explicit name_scan(char_range_3 body) : in(body) {}

    bool next() {
        for (;;) {
            const char c = in.peek_non_white();
            if (c == 0) return false;
            if (c == '-') {
                in.advance();
                move_on();
            } else if (c == '=') {
                in.advance();
                slot = previous(next_slot);
                name = in.token();
                move_on_from(slot);
                return true;
            } else {
                slot = next_slot;
                name = main_name = in.token();
                move_on();
                return true;
            }
        }
    }

    void move_on() { move_on_from(next_slot); }
    void move_on_from(int s) { next_slot = s == n_slots - 1 ? 0 : s + 1; }
    static int previous(int s) { return s == 0 ? n_slots - 1 : s - 1; }

    vstring_in in;
    char_range_3 name;
    char_range_3 main_name;
    int slot = 0;
    int next_slot = 0;
};

// Whether a name asks for rhombohedral axes.
bool names_rhombohedral_axes(char_range_3 name) {
    return (name.length() > 0 && name.end[-1] == 'r') || sstring_in::range_equal(name, "r-3crs");
}

void fill_entry(sg_catalogue_entry_3& entry, const name_scan& scan, char_range_3 tail) {
    entry.axes = axes_of_slot(entry.number, scan.slot);
    char lattice_letter = entry.symbol.data[0];
    if (names_rhombohedral_axes(scan.name)) {
        entry.rhombohedral_hexagonal = "r";
        lattice_letter = 'p';
    }
    string_out symbol;
    symbol << lattice_letter << tail;
    entry.computer_symbol = symbol.text();
    if (is_monoclinic(entry.number)) entry.unique_axis = unique_axes[scan.slot];
}

}  // namespace

sg_catalogue_entry_3 find_catalogue_entry(sg_file_names_3& names) {
    sg_catalogue_entry_3 entry;
    file_in file(catalogue_path(), file_in::data_file);
    const char* const key = names.lower_symbol().data;
    char_range_3 main_name;
    while (file.peek_non_white() != 0) {
        entry.number = file.read_int();
        const char_range_3 tail = file.token();
        file.open_block();
        name_scan scan(file.block_range());
        scan.main_name = main_name;
        while (scan.next()) {
            if (!sstring_in::range_equal(scan.name, key)) continue;
            entry.symbol.assign_range(scan.main_name.begin, scan.main_name.length());
            fill_entry(entry, scan, tail);
            return entry;
        }
        main_name = scan.main_name;
    }
    fail_with("Space group not found in lomar5.txt");
}

namespace {

void write_line(stream_out& stream, const char* key, string_3& value) {
    value.to_lower();
    stream << "\n\t" << key << ' ' << value;
}

}  // namespace

void sg_catalogue_entry_3::write_record(stream_out& stream) {
    stream << "space_group\n{"
           << "\n\tnumber " << number;
    write_line(stream, "symbol", symbol);
    write_line(stream, "point_group", point_group);
    write_line(stream, "computer_symbol", computer_symbol);
    if (!unique_axis.is_empty()) write_line(stream, "unique_axis", unique_axis);
    if (!rhombohedral_hexagonal.is_empty()) {
        write_line(stream, "rhombohedral_hexagonal", rhombohedral_hexagonal);
    }
    if (!axes.is_empty()) stream << "\n\taxes " << axes;
    stream << "\n}";
}

void sg_catalogue_entry_3::read_record(sstring_in& in) {
    in.find_tag("space_group", throw_on_failure);
    in.skip_past('{');
    const struct {
        const char* key;
        string_3* field;
    } texts[] = {{"axes", &axes},
                 {"computer_symbol", &computer_symbol},
                 {"unique_axis", &unique_axis},
                 {"symbol", &symbol},
                 {"point_group", &point_group},
                 {"rhombohedral_hexagonal", &rhombohedral_hexagonal}};
    while (in.more_in_block()) {
        const char_range_3 key = in.token();
        if (sstring_in::range_equal(key, "number")) number = in.read_int();
        for (const auto& text : texts) {
            if (!sstring_in::range_equal(key, text.key)) continue;
            const char_range_3 value = in.token();
            text.field->assign_range(value.begin, value.length());
        }
    }
}
