#include "textout/row_writers.h"

#include <algorithm>
#include <charconv>

void write_row_4(const hkl_row_3& row, stream_out& stream) {
    write_row_3(row, stream);
    write_cell(row.multiplicity, stream);
}

void write_row_3(const hkl_row_3& row, stream_out& stream) {
    write_cell(row.h, stream);
    write_cell(row.k, stream);
    write_cell(row.l, stream);
}

char* put_cell(int value, char* out) {
    constexpr std::ptrdiff_t width = 5;
    char digits[16];
    const char* const end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    const auto length = end - digits;
    for (auto blanks = std::max<std::ptrdiff_t>(width - length, 1); blanks > 0; --blanks) {
        *out++ = ' ';
    }
    return std::copy(static_cast<const char*>(digits), end, out);
}

void write_cell(int value, stream_out& stream) {
    char text[16];
    *put_cell(value, text) = 0;
    stream << text;
}
