#pragma once

#include <cstdint>
#include <cstdio>

#include "foundation/ctr_3.h"
#include "foundation/string_3.h"
#include "foundation/text.h"

// The lists that a stream can write as binary records.
using vector_8_3 = list_n1_3<double>;
using vector_4_3 = list_n1_3<int>;
using vector_4f_3 = list_n1_3<float>;
using vector_1_3 = list_n1_3<char>;
using vector_string_3 = list_n1_3<string_3>;

/// Where output goes. Here numbers are turned into text (number_text), and all text ends up in one
/// operation, `<<` for a const char*, which a class of streams replaces, and others for speed. This
/// base class discards the text. Failures to write are not noticed: look at the length of the file
/// if the disk may be full.
class stream_out {
public:
    stream_out() = default;
    stream_out(const stream_out&) = default;
    stream_out& operator=(const stream_out&) = default;
    virtual ~stream_out() = default;

    /// 1 if values are written as raw bytes.
    virtual int is_binary() const { return 0; }
    virtual std::FILE* handle() { return nullptr; }
    virtual stream_out& self() { return *this; }
    /// The number of characters that a stream in memory holds.
    virtual int text_length() const { return 0; }
    virtual void flush() {}
    virtual void reopen() {}
    virtual const char* file_name() const { return ""; }
    virtual const char* directory() const { return ""; }
    virtual void write_strings(const vector_string_3&) {}
    virtual void write_vector_8(const vector_8_3&) {}
    virtual void write_vector_1(const vector_1_3&) {}
    virtual void write_vector_4(const vector_4_3&) {}
    virtual stream_out& operator<<(std::uint64_t value) { return *this << number_text(value); }
    virtual stream_out& operator<<(int value) { return *this << number_text(value); }
    virtual void write_vector_4f(const vector_4f_3&) {}
    virtual stream_out& operator<<(float value) { return *this << number_text(double{value}); }
    virtual stream_out& operator<<(double value) { return *this << number_text(value); }
    virtual stream_out& operator<<(char_range_3 range);
    virtual stream_out& operator<<(const string_3& text) { return *this << text.data; }
    virtual stream_out& operator<<(char c);
    virtual stream_out& operator<<(const char*) { return *this; }
    /// Removes the last character.
    virtual void pop() {}

    // For streams that can look back; see file_out.
    virtual int remove_tail(const char*, int) { return 0; }
    virtual int read_tail(int, string_3&, int) { return 0; }
    virtual void set_count(int) {}
    virtual char last() const { return 0; }
    virtual char second_last() const { return 0; }
};
