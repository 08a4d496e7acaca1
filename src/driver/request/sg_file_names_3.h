#pragma once

#include "foundation/string_3.h"

/// A space group's symbol in the forms that the program needs, and the paths of its files. Paths
/// are worked out at first demand and don't change with the directory afterwards.
class sg_file_names_3 {
public:
    /// Takes a symbol as a user types it: `F_d_d_d`, `P 21/c`, `Fd-3m:2`, `R-3:H`. The directory
    /// becomes `sg` unless one was set. Fails with " No Spacegroup" if the text has no character
    /// besides blanks and parentheses.
    void set_symbol(const char* text);

    /// Chooses where the output files go. A separator at the end of `text` is left out.
    void set_out_dir(const char* text);

    /// Whether the symbol may name a group: it is a number, or begins with a lattice letter, and
    /// the system takes file_stem() as the name of a file.
    bool is_valid();

    /// What to look for in the catalogue, or empty if is_valid() says no: the symbol in lower case
    /// without blanks, underscores, and an `h` with everything after it. A number may keep its
    /// colon, but not for a `:1`; other symbols keep theirs if they end in `:2`.
    const string_3& lower_symbol();

    // Empty while the symbol is invalid.
    const string_3& file_stem();  ///< lower_symbol() with o for `/` and q for `:`
    const string_3& sg_file();
    const string_3& hkl_file();
    const string_3& sg_path();
    const string_3& hkl_path();

    /// How to call the tool for this group alone; see generate_in_child.
    const string_3& run_command();

    /// Whether the .sg file is there and can be read.
    bool sg_file_exists();

    /// Generates the .sg file in a process of its own, unless it is there. Fails with
    /// " Error running" and the command.
    void generate_in_child();

    const string_3& raw_symbol() const { return raw_symbol_; }
    const string_3& out_dir() const { return out_dir_; }

private:
    const string_3& with_ending(string_3& field, const char* ending);
    const string_3& in_out_dir(string_3& field, const string_3& file);

    string_3 raw_symbol_;
    string_3 lower_symbol_;
    string_3 file_stem_;
    string_3 sg_file_;
    string_3 hkl_file_;
    string_3 sg_path_;
    string_3 hkl_path_;
    string_3 run_command_;
    string_3 out_dir_;
};

/// The path of the catalogue file, built once.
const string_3& catalogue_path();
