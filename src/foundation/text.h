#pragma once

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <type_traits>

#include "foundation/ctr_3.h"
#include "foundation/not_found.h"

// Characters, texts and numbers. A text is any bytes up to a NUL; no encoding is assumed.

/// Some of the characters of a longer text, from `begin` up to but without `end`; no NUL follows.
/// The longer text must outlive it.
struct char_range_3 {
    const char* begin = nullptr;
    const char* end = nullptr;

    int length() const { return static_cast<int>(end - begin); }
};

/// A set of characters; NUL can be one of them. Asking for one costs a look at one bit.
class char_set_3 {
public:
    constexpr char_set_3() = default;

    /// The characters of a text; NUL is no member.
    constexpr explicit char_set_3(const char* text) {
        for (; *text != 0; ++text) insert(*text);
    }

    constexpr void insert(char c) { bits_[byte_of(c)] |= mask_of(c); }
    constexpr bool contains(char c) const { return (bits_[byte_of(c)] & mask_of(c)) != 0; }
    constexpr bool contains(unsigned char c) const { return contains(static_cast<char>(c)); }

private:
    static constexpr unsigned byte_of(char c) { return static_cast<unsigned char>(c) >> 3; }
    static constexpr std::uint8_t mask_of(char c) {
        return static_cast<std::uint8_t>(128 >> (static_cast<unsigned char>(c) & 7));
    }
    std::uint8_t bits_[32] = {};
};

/// Whether two texts are the same, as 1 or 0.
inline int text_equal(const char* a, const char* b) { return std::strcmp(a, b) == 0; }

/// The order of all sorted lists of texts, as 1 or 0. It compares signed bytes, on every system:
/// bytes beyond ASCII (128 to 255) come first, even before the NUL of a text that ends there.
int text_less(const char* a, const char* b);

/// The first place of `c` in a text, or not_found. The NUL at the end isn't looked at.
int text_index(char c, const char* text);

/// Whether a text has `prefix` at its start, as 1 or 0. With no prefix it is 1.
int text_starts(const char* text, const char* prefix);

/// Turns A to Z into lower case and leaves all other bytes alone. Unlike std::tolower it doesn't
/// ask the locale.
constexpr char lower_char(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

/// The integer at the start of a text, as atoi takes it: white space, a sign, digits. Without
/// digits it is 0; a number beyond 32 bits gives the nearest one that fits.
int int_of_text(const char* text);

/// The number at the start of a text, as atof takes it. This and the operations below have points
/// in numbers, whatever the locale of the program.
double double_of_text(const char* text);

/// Where format_number writes: one buffer for the whole program, made large enough for `format`.
vec_3<char, int, ctr_base_0_3<char, char, mem_copy_3<char, char>>>& format_scratch(
    const char* format);

/// Turns the first decimal point in a text that printf wrote from that of the locale into a `.`.
void use_plain_point(char* text);

/// Writes a number as printf does. All calls write into one buffer: use the text, or copy it,
/// before another number is written.
template <typename Number>
const char* format_number(const char* format, Number value) {
    auto& scratch = format_scratch(format);
    std::snprintf(scratch.p, static_cast<std::size_t>(scratch.n_max), format, value);
    if constexpr (std::is_floating_point_v<Number>) use_plain_point(scratch.p);
    return scratch.p;
}

/// A number as text: "%d" for int, "%-.9g" for double. It lasts as that of format_number.
const char* number_text(int value);
const char* number_text(double value);

/// A 64-bit integer as "%-1.0f" writes it, so rounded to a double if it is beyond 2^53.
const char* number_text(std::uint64_t value);
const char* number_text(std::int64_t value);

/// Rounds as std::lround does, so 0.5 to 1 and -0.5 to -1. What doesn't fit an int gives
/// -2147483648.
int round_nearest(double x);
