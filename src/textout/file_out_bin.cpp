#include "textout/file_out_bin.h"

#include <cstring>

file_out_bin::file_out_bin(const char* path) {
    set_name(path);
    set_mode("w+b");
    file_io::open(open_or_throw);
}

void file_out_bin::write_raw(const void* from, std::size_t size) {
    if (file != nullptr) std::fwrite(from, 1, size, file);
}

void file_out_bin::write_bytes(const vector_1_3& bytes) {
    write_value(bytes.n);
    write_value(0);
    if (bytes.n != 0) write_raw(bytes.block(), static_cast<std::size_t>(bytes.n));
}

void file_out_bin::write_strings(const vector_string_3& list) {
    write_head(list);
    for (const string_3& text : list) *this << text;
}

stream_out& file_out_bin::operator<<(char_range_3 range) {
    if (range.length() > 0) write_raw(range.begin, static_cast<std::size_t>(range.length()));
    return *this;
}

stream_out& file_out_bin::operator<<(char c) { return write_value(c); }

stream_out& file_out_bin::operator<<(const char* text) {
    write_raw(text, std::strlen(text) + 1);
    return *this;
}
