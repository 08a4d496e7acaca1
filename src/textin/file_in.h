#pragma once

#include "foundation/string_out.h"
#include "textin/file_io.h"
#include "textin/in_tag_3.h"
#include "textin/sstring_in.h"

/// A text file as a stream. The file is read whole when it is opened, closed at once, and from
/// then on this is a sstring_in over memory. NUL bytes have become blanks, and CR too unless they
/// are to stay.
///
/// Comments are blanked if that is asked for: a single quote begins one that runs to the end of
/// its line; `/*` begins one that ends at its `*/`, and such comments nest. Double quotes have no
/// say in this. A comment that isn't closed fails with " Unclosed comment block".
class file_in : public file_io, public sstring_in, public in_tag_3 {
public:
    // Values of load_flags.
    static constexpr int open_now = 1;       ///< at construction
    static constexpr int load_text = 2;      ///< when the file opens
    static constexpr int drop_comments = 4;  ///< while loading
    static constexpr int keep_cr = 8;
    static constexpr int data_file = 7;  ///< what every data file is opened with

    /// The file must be writable, too: one that isn't counts as missing.
    /// Fails with " Cannot open file" and the path, also when the text is too long for a stream.
    file_in(const char* path, int flags);
    file_in(const string_3& path, int flags) : file_in(path.data, flags) {}

    int open(const char* new_name, int flags) override;
    int open(int flags) override;
    const char* file_name() const override { return name.data; }
    const char* directory() const override { return dir.data; }
    const char* stream_name() const override { return name.data; }
    /// Empties the text as well.
    void close() override;
    int is_file() const override { return 1; }
    int tag() const override { return tag_number(); }

private:
    void load();
    void prepare(int length);

    int load_flags;
    string_out contents;
};

/// Turns the comments of a NUL-terminated text into blanks, in place; see file_in.
void blank_comments(char* text);
