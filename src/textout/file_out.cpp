#include "textout/file_out.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "foundation/except_3.h"
#include "textin/sstring_in.h"

namespace {

constexpr int long_text = 8192;

}  // namespace

file_out::file_out(const char* path, int open_now) {
    set_name(path);
    if (open_now != 0) file_io::open(open_or_throw);
}

void file_out::close() {
    write_all();
    file_io::close();
    incomplete_ = false;  // the next file starts complete
}

void file_out::flush() {
    if (file == nullptr) return;
    write_all();
    std::fflush(file);
}

void file_out::finish() {
    write_all();
    if (file != nullptr && std::fclose(file) != 0) incomplete_ = true;
    file = nullptr;
    if (!std::exchange(incomplete_, false)) return;
    (error_builder_3() << "Cannot write file" << name).fail();
}

void file_out::write_out(const char* text, int length) {
    if (file == nullptr || incomplete_ || length < 1) return;
    const auto size = static_cast<std::size_t>(length);
    if (std::fwrite(text, 1, size, file) != size) incomplete_ = true;
}

void file_out::write_all() {
    write_out(buffer.p, buffer.n);
    buffer.n = 0;
}

void file_out::write_part() {
    const int out = buffer.n - keep;
    write_out(buffer.p, out);
    std::memmove(buffer.p, buffer.p + out, static_cast<std::size_t>(keep));
    buffer.n = keep;
}

// A long text is written at once except for its tail. Otherwise this fills the buffer up to one
// character above the mark, writes out a part, and continues.
void file_out::append(const char* text, int length) {
    if (length > long_text && file != nullptr) {
        write_all();
        write_out(text, length - keep);
        text += length - keep;
        length = keep;
    }
    while (length > 0) {
        const int part = std::max(1, std::min(length, high_mark + 1 - buffer.n));
        int room = std::max(buffer.n_max, 1);
        while (room < buffer.n + part) room = buffer.doubled(room);
        if (room > buffer.n_max) buffer.set_max_n(room, true);
        std::memcpy(buffer.p + buffer.n, text, static_cast<std::size_t>(part));
        buffer.n += part;
        text += part;
        length -= part;
        if (buffer.n > high_mark) write_part();
    }
}

stream_out& file_out::operator<<(char c) {
    append(&c, 1);
    return *this;
}

stream_out& file_out::operator<<(const char* text) {
    append(text, static_cast<int>(std::strlen(text)));
    return *this;
}

stream_out& file_out::operator<<(char_range_3 range) {
    append(range.begin, range.length());
    return *this;
}

int file_out::tail_end(int flags) const {
    if ((flags & behind_white) == 0) return buffer.n;
    for (int end = buffer.n; end > 0; --end) {
        if (!white_set_3.contains(buffer[end - 1])) return end;
    }
    return buffer.n;
}

int file_out::remove_tail(const char* text, int flags) {
    const int length = static_cast<int>(std::strlen(text));
    const int end = tail_end(flags);
    if (length > end) return 0;
    if (std::memcmp(buffer.p + end - length, text, static_cast<std::size_t>(length)) != 0) return 0;
    buffer.n = end - length;
    return 1;
}

int file_out::read_tail(int count, string_3& out, int flags) {
    out.clear();
    const int end = tail_end(flags);
    if (count > end) return -1;
    out.assign_range(buffer.p + end - count, count);
    return end - count;
}
