#include "foundation/string_3.h"

char* string_3::shared_empty() noexcept {
    static char zero_byte = 0;
    return &zero_byte;
}

void string_3::hold(char* buffer, int size) noexcept {
    release();
    data = buffer;
    capacity = size;
    owned = size;
}

void string_3::assign(const char* source, int count) {
    if (count < 1) {
        data[0] = 0;
    } else if (count == 1 && capacity == 0 && *source == 0) {
        data = shared_empty();
    } else if (count > capacity) {
        char* buffer = static_cast<char*>(pool_new(count));
        std::memcpy(buffer, source, static_cast<std::size_t>(count));
        hold(buffer, count);
    } else {
        std::memmove(data, source, static_cast<std::size_t>(count));
    }
}

void string_3::assign_range(const char* source, int length) {
    if (length < 1) return assign("", 0);
    if (length + 1 > owned) {
        char* buffer = static_cast<char*>(pool_new(length + 1));
        std::memcpy(buffer, source, static_cast<std::size_t>(length));
        hold(buffer, length + 1);
    } else {
        std::memmove(data, source, static_cast<std::size_t>(length));
    }
    data[length] = 0;
}

void string_3::take(string_3& other) noexcept {
    release();
    data = other.data;
    capacity = other.capacity;
    owned = other.owned;
    other.data = shared_empty();
    other.capacity = 0;
    other.owned = 0;
}

void string_3::append(const char* text) {
    const std::size_t more = std::strlen(text);
    if (more == 0) return;
    const std::size_t present = std::strlen(data);
    const int size =
        mem_copy_3<char, char>::added(static_cast<int>(present + 1), static_cast<int>(more));
    if (size > owned) {
        char* buffer = static_cast<char*>(pool_new(size));
        std::memcpy(buffer, data, present);
        std::memcpy(buffer + present, text, more + 1);
        hold(buffer, size);
    } else {
        std::memcpy(data + present, text, more);
        data[present + more] = 0;
    }
}

void string_3::append(char c) {
    const char text[2] = {c, 0};
    append(text);
}

void string_3::prepend(const char* text) {
    const string_3 present(data);
    assign_text(text);
    append(present.data);
}

char* string_3::last() { return is_empty() ? data : data + length() - 1; }

void string_3::to_lower() {
    for (char* c = data; *c != 0; ++c) *c = lower_char(*c);
}

void string_3::replace_char(char from, char to) {
    char* const end = data + length();
    for (char* c = data; c != end; ++c) {
        if (*c == from) *c = to;
    }
}

void string_3::remove_first() {
    if (!is_empty()) std::memmove(data, data + 1, std::strlen(data));
}

void string_3::remove_chars(const char* set_text) {
    if (is_empty() || *set_text == 0) return;
    const char_set_3 set(set_text);
    string_out rest;
    for (const char* c = data; *c != 0; ++c) {
        if (!set.contains(*c)) rest << *c;
    }
    assign(rest.text(), rest.n);
}

namespace {

// One pass of replace_all: the text of `in` with every `what` replaced, from left to right.
int replace_pass(const char* in, const char* what, const char* with, string_out& out) {
    const std::size_t what_length = std::strlen(what);
    int count = 0;
    out.clear();
    while (*in != 0) {
        if (*in == *what && text_starts(in, what)) {
            out << with;
            in += what_length;
            ++count;
        } else {
            out << *in++;
        }
    }
    return count;
}

}  // namespace

int string_3::replace_all(const char* what, const char* with) {
    if (*what == 0) return 0;
    string_out texts[2];
    const char* from = data;
    int total = 0;
    for (int pass = 0;; pass ^= 1) {
        const int count = replace_pass(from, what, with, texts[pass]);
        from = texts[pass].text();
        total += count;
        if (count != 0) continue;
        assign(from, texts[pass].n);
        return total;
    }
}

void string_3::quote() {
    if (data[0] == '"') return;
    prepend("\"");
    append('"');
}

void string_3::unquote() {
    if (data[0] != '"') return;
    remove_first();
    if (*last() == '"') *last() = 0;
}

int find_sorted(const string_list_3& list, const char* key) {
    if (list.n == 0) return not_found;
    int low = 0;
    int high = list.n - 1;
    while (high - low > 1) {
        const int mid = (low + high) >> 1;
        if (text_less(list[mid].data, key)) {
            low = mid + 1;
        } else {
            high = mid;
        }
    }
    if (list[high] == key) return high;
    return list[low] == key ? low : not_found;
}
