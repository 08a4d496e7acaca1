#pragma once

#include "foundation/memory.h"
#include "foundation/string_out.h"
#include "foundation/text.h"

/// A short text that is kept: a name, a path, a key. The buffer comes from the pool and has no
/// spare room; where it is left out, `data` points to the one NUL that all empty strings have in
/// common, or to a text that isn't this string's to free and that must outlive it: whoever puts
/// such a text into `data` of an empty string lends it, and operations in place change it. The NUL
/// alone marks the end of the text: whoever writes one into `data` shortens it.
class string_3 {
public:
    string_3() noexcept : data(shared_empty()) {}
    string_3(const char* text) : string_3() { assign_text(text); }
    explicit string_3(int value) : string_3() { assign_text(number_text(value)); }
    explicit string_3(double value) : string_3() { assign_text(number_text(value)); }
    string_3(const string_3& other) : string_3() { assign_text(other.data); }
    string_3(string_3&& other) noexcept : string_3() { take(other); }
    string_3& operator=(const string_3& other) {
        if (this != &other) assign_text(other.data);
        return *this;
    }
    string_3& operator=(string_3&& other) noexcept {
        if (this != &other) take(other);
        return *this;
    }
    string_3& operator=(const char* text) {
        assign_text(text);
        return *this;
    }
    ~string_3() { release(); }

    static void* operator new(std::size_t size) { return pooled_3::operator new(size); }
    static void operator delete(void* pointer, std::size_t size) noexcept {
        pooled_3::operator delete(pointer, size);
    }

    const char* text() const { return data; }

    /// Makes the text the `count` bytes at `source`, of which the last is NUL; with a count below 1
    /// the text is empty. `source` may be a part of this text.
    void assign(const char* source, int count);
    /// As assign, for `length` characters that need no NUL after them.
    void assign_range(const char* source, int length);
    /// Takes over the buffer of `other`, which is left empty.
    void take(string_3& other) noexcept;

    void append(const char* text);
    void append(char c);
    void append(int value) { append(number_text(value)); }
    void prepend(const char* text);

    int length() const { return static_cast<int>(std::strlen(data)); }
    bool is_empty() const { return data[0] == 0; }
    /// Empties the text and keeps the buffer.
    void clear() { data[0] = 0; }
    /// The address of the character before the NUL, or of the NUL if there is none.
    char* last();

    /// Turns A to Z into a to z.
    void to_lower();
    /// Puts `to` wherever the text has `from`. With NUL for `to` this cuts the text off there.
    void replace_char(char from, char to);
    /// Drops the first character, if there is one.
    void remove_first();
    /// Drops all characters that `set_text` names. This and replace_all leave a text alone that
    /// somebody else owns.
    void remove_chars(const char* set_text);
    /// Puts `with` wherever the text has `what`, and again where that made a new `what`; gives how
    /// often. An empty `what` is never found. Hangs if `with` has `what` in it.
    int replace_all(const char* what, const char* with);
    /// Puts double quotes around the text, unless it begins with one.
    void quote();
    /// Removes a leading double quote and then a trailing one; without the first nothing is
    /// removed.
    void unquote();

    char* data;        ///< the text with its NUL; never null
    int capacity = 0;  ///< bytes of the own buffer, 0 without one
    int owned = 0;     ///< what pool_delete must be told for that buffer, or 0

private:
    static char* shared_empty() noexcept;
    void assign_text(const char* text) { assign(text, static_cast<int>(std::strlen(text)) + 1); }
    void hold(char* buffer, int size) noexcept;
    void release() noexcept { pool_delete(data, owned); }
};

inline bool operator==(const string_3& a, const string_3& b) {
    return text_equal(a.data, b.data) != 0;
}
inline bool operator==(const string_3& a, const char* b) { return text_equal(a.data, b) != 0; }

inline bool element_less(const string_3& a, const string_3& b) {
    return text_less(a.data, b.data) != 0;
}

inline string_out& operator<<(string_out& out, const string_3& text) { return out << text.data; }

using string_list_3 = list_0_3<string_3>;

/// The index of `key` in a list sorted by text_less, or not_found.
int find_sorted(const string_list_3& list, const char* key);
