#pragma once

#include <cstdint>
#include <cstdio>
#include <cstring>

#include "foundation/ctr_3.h"
#include "foundation/not_found.h"

// Characters, texts and numbers. A text is a NUL-terminated sequence of bytes without encoding.

/// A stretch of characters, `end` one past the last. It owns nothing and has no NUL of its own.
struct char_range_3 {
    const char* begin = nullptr;
    const char* end = nullptr;

    int length() const { return static_cast<int>(end - begin); }
};

/// A set of byte values as 256 bits. NUL may be a member.
class char_set_3 {
public:
    constexpr char_set_3() = default;

    /// The characters of a text; NUL is no member.
    constexpr explicit char_set_3(const char* text) {
        for (; *text != 0; ++text) insert(*text);
    }

    constexpr void insert(char c) { bits[byte_of(c)] |= mask_of(c); }
    constexpr bool contains(char c) const { return (bits[byte_of(c)] & mask_of(c)) != 0; }

private:
    static constexpr unsigned byte_of(char c) { return static_cast<unsigned char>(c) >> 3; }
    static constexpr std::uint8_t mask_of(char c) {
        return static_cast<std::uint8_t>(128 >> (static_cast<unsigned char>(c) & 7));
    }
    std::uint8_t bits[32] = {};
};

/// 1 if two texts are equal byte for byte, else 0.
inline int text_equal(const char* a, const char* b) { return std::strcmp(a, b) == 0; }

/// 1 if `a` sorts before `b`, else 0. Bytes count as signed values, so that those from 128 up come
/// before all of ASCII; the NUL at the end of the shorter text takes part. All sorted tables of
/// texts are in this order.
int text_less(const char* a, const char* b);

/// The index of the first `c` in a text, or not_found. NUL isn't found.
int text_index(char c, const char* text);

/// 1 if `text` begins with `prefix`; an empty prefix gives 1.
int text_starts(const char* text, const char* prefix);

/// Lower case for the letters A to Z, whatever the locale; other bytes as they are.
constexpr char lower_char(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

/// The integer at the start of a text by the rules of atoi: white space, a sign, digits. A text
/// that is no number gives 0; a number beyond 32 bits gives the nearest one that fits.
int int_of_text(const char* text);

/// The number at the start of a text, by the rules of atof.
double double_of_text(const char* text);

/// The scratch that format_number writes into, with at least the capacity that `format` needs.
vec_3<char, int, ctr_base_0_3<char, char, mem_copy_3<char, char>>>& format_scratch(
    const char* format);

/// One number by a printf format. The text is shared: it is valid until the next call.
template <typename Number>
const char* format_number(const char* format, Number value) {
    auto& scratch = format_scratch(format);
    std::snprintf(scratch.p, static_cast<std::size_t>(scratch.n_max), format, value);
    return scratch.p;
}

/// The text of a number in the one format that its type has: "%d" for int, "%-.9g" for double.
const char* number_text(int value);
const char* number_text(double value);

/// A 64-bit integer by "%-1.0f": beyond 2^53 the low digits are lost.
const char* number_text(std::uint64_t value);

/// The nearest integer, halves away from zero. Values that no int holds give -2147483648.
int round_nearest(double x);
