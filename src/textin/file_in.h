#pragma once

#include "foundation/string_out.h"
#include "textin/file_io.h"
#include "textin/in_tag_3.h"
#include "textin/sstring_in.h"

/// Reads a text file. Opening loads all of it and closes it again; what follows works on the copy
/// in memory, in which NUL and, without keep_cr, CR are replaced by blanks.
///
/// drop_comments replaces comments by blanks as well: what follows a single quote on a line, and
/// what is between `/*` and `*/`, which may be nested. Both count between double quotes, too. Fails
/// with " Unclosed comment block" if a `*/` is missing.
class file_in : public file_io, public sstring_in, public in_tag_3 {
public:
    // Values of load_flags.
    static constexpr int open_now = 1;       ///< at construction
    static constexpr int load_text = 2;      ///< when the file opens
    static constexpr int drop_comments = 4;  ///< while loading
    static constexpr int keep_cr = 8;
    static constexpr int data_file = 7;  ///< what every data file is opened with

    /// Fails with " Cannot open file" and the path: if there is no such file, if it may not be
    /// written to, which opening asks for, or if its text is too long for a stream. Fails with
    /// " Cannot read file" when the system can't give what it has.
    file_in(const char* path, int flags);
    file_in(const string_3& path, int flags) : file_in(path.data, flags) {}

    int open(const char* new_name, int flags) override;
    int open(int flags) override;
    const char* file_name() const override { return name.data; }
    const char* directory() const override { return dir.data; }
    const char* stream_name() const override { return name.data; }
    /// Empties the text as well. An empty mode becomes "r".
    void close() override;
    int is_file() const override { return 1; }
    int tag() const override { return tag_number(); }

private:
    void load();

    int load_flags;
    string_out contents;
};

/// Does in place what loading with these flags does to a text that ends with a NUL after `length`
/// characters, NULs among them: see file_in.
void blank_for_reading(char* text, int length, int load_flags);

/// Turns the comments of a NUL-terminated text into blanks, in place; see file_in.
void blank_comments(char* text);
