#pragma once

#include "foundation/string_3.h"

/// A space group's symbol in the forms that the program needs, and the paths of its files. Paths
/// are worked out at first demand and don't change with the directory afterwards.
class sg_file_names_3 {
public:
    /// Takes a symbol as a user types it: `F_d_d_d`, `P 21/c`, `Fd-3m:2`, `R-3:H`. The directory
    /// becomes `sg` unless one was set. Fails with " No Spacegroup" when nothing but blanks and
    /// parentheses was given.
    void set_symbol(const char* text);

    /// Sets the directory of the output files, less one trailing separator.
    void set_out_dir(const char* text);

    /// Whether the symbol may name a group: it is a number, or begins with a lattice letter.
    bool is_valid();

    /// The key by which the catalogue is searched; empty for an invalid symbol. Lower case, no
    /// blank and no underscore; cut at the first `h`; a colon only in a final `:2`, or where the
    /// symbol is a number.
    const string_3& lower_symbol();

    // Empty while the symbol is invalid.
    const string_3& file_stem();  ///< the key as a file name: `/` becomes o, `:` becomes q
    const string_3& sg_file();
    const string_3& hkl_file();
    const string_3& sg_path();
    const string_3& hkl_path();

    /// The command line that would generate the group in a process of its own.
    const string_3& run_command();

    /// Whether the .sg file can be opened.
    bool sg_file_exists();

    /// Generates the .sg file in a process of its own, unless it is there. Fails with
    /// " Error running" and the command. (library/child_process.cpp)
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
