#include "foundation/string_out.h"

#include <utility>

string_out::string_out(int capacity) {
    set_room(capacity < 1 ? 1 : capacity, false);
    n = 1;
    p[0] = 0;
}

string_out& string_out::append_text(const char* text, int length) {
    if (length < 1) return *this;
    const int size = added(n, length);
    list old;  // keeps the block that may hold the text
    if (n_max < size) {
        old.set_max_n(doubled(size), false);
        std::memcpy(old.p, p, static_cast<std::size_t>(n));
        std::swap(old.p, p);
        std::swap(old.n_max, n_max);
    }
    std::memcpy(p + n - 1, text, static_cast<std::size_t>(length));
    n = size;
    p[n - 1] = 0;
    return *this;
}

string_out& string_out::operator<<(char c) {
    if (n_max == n) set_room(grown(n), true);
    p[n - 1] = c;
    p[n++] = 0;
    return *this;
}

void string_out::add(const string_out& other) {
    const int length = other.length();
    const int size = added(n, length);
    if (n_max < size) set_room(size, true);
    std::memmove(p + n - 1, other.p, static_cast<std::size_t>(length));
    n = size;
    p[n - 1] = 0;
}

void string_out::separate() {
    if (n > 1 && last() != ' ') *this << ' ';
}

void string_out::clear() {
    if (n_max < 1) set_room(1, false);
    n = 1;
    p[0] = 0;
}

void string_out::reset() {
    set_room(1, false);
    n = 1;
    p[0] = 0;
}

void string_out::set_length(int length) {
    const int size = added(length, 1);
    if (n_max < size) set_room(size, true);
    n = size;
    p[length] = 0;
}

void string_out::extend(int length) {
    const int size = added(n, length);
    if (n_max < size) set_room(doubled(size), true);
    n = size;
    p[n - 1] = 0;
}

void string_out::pop() {
    if (n < 2) return;
    --n;
    p[n - 1] = 0;
}
