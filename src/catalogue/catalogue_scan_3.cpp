#include "catalogue/catalogue_scan_3.h"

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

// Whether a name asks for rhombohedral axes.
bool names_rhombohedral_axes(char_range_3 name) {
    return (name.length() > 0 && name.end[-1] == 'r') || sstring_in::range_equal(name, "r-3crs");
}

}  // namespace

bool catalogue_scan_3::next() {
    while (!next_in_record()) {
        if (in.peek_non_white() == 0) return false;
        read_record();
    }
    return true;
}

void catalogue_scan_3::read_record() {
    number = in.read_int();
    tail = in.token();
    in.open_block();
    body = vstring_in(in.block_range());
    next_slot = 0;
}

bool catalogue_scan_3::next_in_record() {
    for (;;) {
        const char c = body.peek_non_white();
        if (c == 0) return false;
        if (c == '-') {
            body.advance();
            move_on();
            continue;
        }
        is_main_name_ = c != '=';
        if (is_main_name_) {
            slot = next_slot;
            move_on();
        } else {
            body.advance();
            slot = next_slot == 0 ? n_slots - 1 : next_slot - 1;
        }
        name_ = body.token();
        if (is_main_name_) main_name = name_;
        return true;
    }
}

void catalogue_scan_3::move_on() { next_slot = next_slot == n_slots - 1 ? 0 : next_slot + 1; }

sg_catalogue_entry_3 catalogue_scan_3::entry() const {
    sg_catalogue_entry_3 entry;
    entry.number = number;
    entry.symbol.assign_range(main_name.begin, main_name.length());
    entry.axes = axes_of_slot(number, slot);
    char lattice_letter = entry.symbol.data[0];
    if (names_rhombohedral_axes(name_)) {
        entry.rhombohedral_hexagonal = "r";
        lattice_letter = 'p';
    }
    string_out symbol;
    symbol << lattice_letter << tail;
    entry.computer_symbol = symbol.text();
    if (is_monoclinic(number)) entry.unique_axis = unique_axes[slot];
    return entry;
}
