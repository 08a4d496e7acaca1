#pragma once

#include "foundation/memory.h"
#include "foundation/string_out.h"
#include "foundation/text.h"

/// The stored string: a NUL-terminated text in a buffer of exactly the size that the text first
/// needed. Its length isn't stored, so that a NUL written into the text shortens it. It has one of
/// three forms: empty and shared (nothing is allocated, all such strings point to one zero byte),
/// owning (a buffer from the pool), or borrowing (somebody else's text, never freed here).
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

    /// Copies `count` bytes, the NUL included. A count below 1 empties the text. The source may
    /// lie in the string's own buffer.
    void assign(const char* source, int count);
    /// Copies `length` characters and adds a NUL.
    void assign_range(const char* source, int length);
    /// Points to a text that somebody else owns and that must outlive this; operations in place
    /// change that text.
    void borrow(char* text);
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
    /// Where the last character stands; for an empty text that is its NUL.
    char* last();

    /// Lower case in place, for A to Z.
    void to_lower();
    /// Replaces every `from` in the whole former extent of the text; with a `to` of NUL the text
    /// ends at the first of them.
    void replace_char(char from, char to);
    /// Removes the first character, if there is one.
    void remove_first();
    /// Removes every character that occurs in `set_text`.
    void remove_chars(const char* set_text);
    /// Replaces `what` by `with` in passes over the text, until a pass finds nothing; gives the
    /// number of replacements. An empty `what` is never found. `with` must not contain `what`, or
    /// the passes wouldn't end.
    int replace_all(const char* what, const char* with);
    /// Puts double quotes around the text, unless it begins with one.
    void quote();
    /// Removes a leading double quote and then a trailing one; without the first nothing goes.
    void unquote();

    char* data;        ///< the text, always NUL-terminated
    int capacity = 0;  ///< bytes of the buffer; 0 when the string owns nothing
    int owned = 0;     ///< size to give back to the pool; 0 when the string owns nothing

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
