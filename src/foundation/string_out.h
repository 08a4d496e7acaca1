#pragma once

#include "foundation/ctr_3.h"
#include "foundation/text.h"

/// The growing buffer in which text is composed. The count of the list includes the terminating
/// NUL: an empty text has the count 1. A buffer that is too small becomes twice as large as needed.
class string_out : public vec_3<char, int, ctr_base_0_3<char, char, mem_copy_3<char, char>>> {
public:
    /// An empty text with room for `capacity` bytes.
    explicit string_out(int capacity = 128);
    string_out(const string_out&) = default;
    string_out& operator=(const string_out&) = default;

    /// The number of characters, without the NUL.
    virtual int length() const { return n - 1; }

    const char* text() const { return p; }

    string_out& operator<<(const char* text) { return append_text(text, text_size(text)); }
    string_out& operator<<(char c);
    string_out& operator<<(int value) { return *this << number_text(value); }
    string_out& operator<<(char_range_3 range) { return append_text(range.begin, range.length()); }

    /// Appends another text; a buffer that is too small grows to just what is needed.
    void add(const string_out& other);
    /// Appends a blank, unless the text is empty or ends in one.
    void separate();
    /// Empties the text and keeps the buffer.
    void clear();
    /// Empties the text and leaves a buffer of exactly 1 byte.
    void reset();
    /// Makes the text `length` characters long; new ones hold what the buffer held.
    void set_length(int length);
    /// Adds `length` characters that are for the caller to fill.
    void extend(int length);
    /// Removes the last character, if there is one.
    void pop();
    /// The last character, or 0 if the text is empty.
    char last() const { return n < 2 ? '\0' : p[n - 2]; }
    /// The character before the last, or 0 if there are fewer than 2.
    char second_last() const { return n < 3 ? '\0' : p[n - 3]; }

private:
    static int text_size(const char* text) { return static_cast<int>(std::strlen(text)); }
    string_out& append_text(const char* text, int length);
};
