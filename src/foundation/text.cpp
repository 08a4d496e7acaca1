#include "foundation/text.h"

#include <charconv>
#include <clocale>
#include <cstdlib>
#include <limits>

#include "foundation/string_out.h"

namespace {

const char* locale_point() { return std::localeconv()->decimal_point; }

}  // namespace

int text_less(const char* a, const char* b) {
    while (*a == *b && *a != 0) {
        ++a;
        ++b;
    }
    return static_cast<signed char>(*a) < static_cast<signed char>(*b);
}

int text_index(char c, const char* text) {
    for (int i = 0; text[i] != 0; ++i) {
        if (text[i] == c) return i;
    }
    return not_found;
}

int text_starts(const char* text, const char* prefix) {
    for (; *prefix != 0; ++text, ++prefix) {
        if (*text != *prefix) return 0;
    }
    return 1;
}

int int_of_text(const char* text) {
    const long long value = std::strtoll(text, nullptr, 10);
    if (value > std::numeric_limits<int>::max()) return std::numeric_limits<int>::max();
    if (value < std::numeric_limits<int>::min()) return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

double double_of_text(const char* text) {
    const char* const point = locale_point();
    if (text_equal(point, ".")) return std::strtod(text, nullptr);
    // As the locale writes the number; where the text has the locale's point, the number ends.
    const char* const end = std::strstr(text, point);
    string_out local;
    for (const char* c = text; *c != 0 && c != end; ++c) {
        if (*c == '.') {
            local << point;
        } else {
            local << *c;
        }
    }
    return std::strtod(local.text(), nullptr);
}

void use_plain_point(char* text) {
    const char* const point = locale_point();
    if (text_equal(point, ".")) return;
    const std::size_t length = std::strlen(point);
    for (char* c = std::strstr(text, point); c != nullptr; c = std::strstr(c + 1, point)) {
        if (c == text || c[-1] < '0' || c[-1] > '9') continue;
        *c = '.';
        std::memmove(c + 1, c + length, std::strlen(c + length) + 1);
        return;
    }
}

vec_3<char, int, ctr_base_0_3<char, char, mem_copy_3<char, char>>>& format_scratch(
    const char* format) {
    static vec_3<char, int, ctr_base_0_3<char, char, mem_copy_3<char, char>>> scratch;
    const int needed = static_cast<int>(std::strlen(format)) + 1256;
    if (scratch.n_max < needed) scratch.set_max_n(needed, false);
    return scratch;
}

const char* number_text(int value) {
    auto& scratch = format_scratch("%d");
    *std::to_chars(scratch.p, scratch.p + scratch.n_max, value).ptr = 0;
    return scratch.p;
}

const char* number_text(double value) { return format_number("%-.9g", value); }

const char* number_text(std::uint64_t value) {
    return format_number("%-1.0f", static_cast<double>(value));
}

const char* number_text(std::int64_t value) {
    return format_number("%-1.0f", static_cast<double>(value));
}

int round_nearest(double x) {
    if (!(x > -2147483649.0 && x < 2147483648.0)) return std::numeric_limits<int>::min();
    const int t = static_cast<int>(x);
    const std::int64_t nearest = std::int64_t{t} - static_cast<int>((x - t) * -2.0);
    const bool fits = nearest == static_cast<int>(nearest);
    return fits ? static_cast<int>(nearest) : std::numeric_limits<int>::min();
}
