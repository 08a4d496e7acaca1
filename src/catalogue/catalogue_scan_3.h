#pragma once

#include "catalogue/sg_catalogue_entry_3.h"

/// Goes through a catalogue, name by name in the order of the file:
///
///     catalogue_scan_3 scan(catalogue.text());
///     while (scan.next()) {
///         if (scan.is_main_name()) settings.add(scan.entry());
///     }
class catalogue_scan_3 {
public:
    /// Starts before the first name of a text whose comments are blanked, as data_text_3 and
    /// file_in do it. The text must outlive the scan.
    explicit catalogue_scan_3(const char* text) : in_(text) {}

    /// Moves to the next name; false at the end. Fails on a malformed record.
    bool next();

    /// The name, which is what sg_file_names_3 makes of a symbol.
    char_range_3 name() const { return name_; }
    /// Whether the name is the first one of its setting, and not one after a `=`.
    bool is_main_name() const { return is_main_name_; }
    /// The record of the group in the setting of this name, all but its point group.
    sg_catalogue_entry_3 entry() const;

private:
    bool next_in_record();
    void read_record();
    void move_on();

    sstring_in in_;
    vstring_in body_;
    int number_ = -1;
    char_range_3 tail_;
    char_range_3 name_;
    char_range_3 main_name_;
    bool is_main_name_ = false;
    int slot_ = 0;
    int next_slot_ = 0;
};
