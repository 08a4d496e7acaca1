#pragma once

#include "foundation/ctr_3.h"
#include "foundation/text.h"

/// A text to which more can be added. It is a list of characters that ends in a NUL, so
/// `n` is never below 1. When the room runs out, the list gets double of what the text then needs.
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
    /// Cuts the text to `length` characters, or stretches it with undefined ones.
    void set_length(int length);
    /// Stretches the text by `length` undefined characters, to be overwritten.
    void extend(int length);
    /// Drops the last character, if there is one.
    void pop();
    /// What the text ends in; NUL if it is empty.
    char last() const { return n < 2 ? '\0' : p[n - 2]; }
    /// The character before last(); NUL if there is none.
    char second_last() const { return n < 3 ? '\0' : p[n - 3]; }

    // These would take away the NUL or the room for it.
    void take(string_out&) = delete;
    void new_n(int) = delete;
    void new_n_zero(int) = delete;
    void set_max_n(int, bool) = delete;
    void set_n(int) = delete;
    void set_n_discard(int) = delete;
    void set_like(const string_out&) = delete;
    void set_like_zero(const string_out&) = delete;
    void add_n(int) = delete;

private:
    using list = vec_3<char, int, ctr_base_0_3<char, char, mem_copy_3<char, char>>>;

    void set_room(int capacity, bool keep) { list::set_max_n(capacity, keep); }
    static int text_size(const char* text) { return static_cast<int>(std::strlen(text)); }
    string_out& append_text(const char* text, int length);
};
