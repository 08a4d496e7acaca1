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
        if (in_.peek_non_white() == 0) return false;
        read_record();
    }
    return true;
}

void catalogue_scan_3::read_record() {
    number_ = in_.read_int();
    tail_ = in_.token();
    in_.open_block();
    body_ = vstring_in(in_.block_range());
    next_slot_ = 0;
}

bool catalogue_scan_3::next_in_record() {
    for (;;) {
        const unsigned char c = body_.peek_non_white();
        if (c == 0) return false;
        if (c == '-') {
            body_.advance();
            move_on();
            continue;
        }
        is_main_name_ = c != '=';
        if (is_main_name_) {
            slot_ = next_slot_;
            move_on();
        } else {
            body_.advance();
            slot_ = next_slot_ == 0 ? n_slots - 1 : next_slot_ - 1;
        }
        name_ = body_.token();
        if (is_main_name_) main_name_ = name_;
        return true;
    }
}

void catalogue_scan_3::move_on() { next_slot_ = next_slot_ == n_slots - 1 ? 0 : next_slot_ + 1; }

sg_catalogue_entry_3 catalogue_scan_3::entry() const {
    sg_catalogue_entry_3 entry;
    entry.number = number_;
    entry.symbol.assign_range(main_name_.begin, main_name_.length());
    entry.axes = axes_of_slot(number_, slot_);
    char lattice_letter = entry.symbol.data[0];
    if (names_rhombohedral_axes(name_)) {
        entry.rhombohedral_hexagonal = "r";
        lattice_letter = 'p';
    }
    string_out symbol;
    symbol << lattice_letter << tail_;
    entry.computer_symbol = symbol.text();
    if (is_monoclinic(number_)) entry.unique_axis = unique_axes[slot_];
    return entry;
}
