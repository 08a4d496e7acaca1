#include "textin/file_in_bin.h"

#include <limits>

#include "foundation/except_3.h"

file_in_bin::file_in_bin(const char* path) {
    set_name(path);
    set_mode("rb");
    open(open_or_throw);
}

void file_in_bin::close() {
    pushed_back_.n = 0;
    file_io::close();
}

int file_in_bin::at_eof() {
    if (pushed_back_.n != 0) return 0;
    const int byte = get_byte();
    if (byte == EOF) return 1;
    pushed_back_.add(static_cast<char>(byte));
    return 0;
}

int file_in_bin::get_byte() {
    if (pushed_back_.n == 0) return file != nullptr ? std::fgetc(file) : EOF;
    return static_cast<unsigned char>(pushed_back_[--pushed_back_.n]);
}

void file_in_bin::read_bytes(void* to, std::size_t size) {
    char* out = static_cast<char*>(to);
    for (; size > 0 && pushed_back_.n != 0; --size) *out++ = static_cast<char>(get_byte());
    if (size > 0 && file != nullptr && std::fread(out, 1, size, file) < size) return;
}

int file_in_bin::read_int() {
    int value = 0;
    read_bytes(&value, sizeof value);
    return value;
}

double file_in_bin::read_double() {
    double value = 0.0;
    read_bytes(&value, sizeof value);
    return value;
}

void file_in_bin::check_last_index(int count, int base) const {
    if (base > std::numeric_limits<int>::max() - (count - 1)) refuse_list();
}

void file_in_bin::check_size(std::int64_t size) {
    constexpr std::int64_t most_missing = 1 << 20;
    if (size <= most_missing || file == nullptr) return;
    std::fpos_t place;
    if (std::fgetpos(file, &place) != 0) return;
    const std::int64_t begin = std::ftell(file);
    if (std::fseek(file, 0, SEEK_END) != 0) return;
    const std::int64_t end = std::ftell(file);
    std::fsetpos(file, &place);
    if (begin >= 0 && end >= 0 && size - most_missing > end - begin + pushed_back_.n) refuse_list();
}

void file_in_bin::refuse_list() const {
    (error_builder_3() << "Invalid list in" << name.data).fail();
}

void file_in_bin::read_text(string_3& out) {
    string_out text;
    for (int byte = get_byte(); byte != EOF && byte != 0; byte = get_byte()) {
        text << static_cast<char>(byte);
    }
    out.assign(text.text(), text.n);
}
