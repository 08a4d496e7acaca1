#pragma once

#include "foundation/string_3.h"
#include "foundation/string_out.h"

/// The text of a data file that a program has in memory. Readers take it in the place of the file,
/// so that a program with its data compiled in opens none; any number of them may use it.
class data_text_3 {
public:
    /// Copies the text, and blanks its comments as file_in::data_file does. It may hold NULs and
    /// needs none at its end. Fails with " Unclosed comment block".
    data_text_3(const char* begin, int length);
    /// Reads a file; fails as file_in does.
    explicit data_text_3(const string_3& path);

    /// What there is to read, up to a NUL.
    const char* text() const { return contents_.text(); }

private:
    string_out contents_;
};
