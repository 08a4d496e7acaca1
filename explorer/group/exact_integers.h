#pragma once

#include <cstdint>
#include <limits>
#include <stdexcept>

/// Arithmetic of whole numbers that throws std::overflow_error instead of leaving its type.
namespace lomar::exact {

[[noreturn]] inline void overflow() { throw std::overflow_error("a number is too large"); }

inline std::int64_t product(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    if (__builtin_mul_overflow(a, b, &result)) overflow();
    return result;
}

inline std::int64_t sum(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    if (__builtin_add_overflow(a, b, &result)) overflow();
    return result;
}

inline std::int64_t negative(std::int64_t a) {
    if (a == std::numeric_limits<std::int64_t>::min()) overflow();
    return -a;
}

/// The number as an int whose negative is one, too.
inline int narrowed(std::int64_t value) {
    constexpr int most = std::numeric_limits<int>::max();
    if (value < -most || value > most) overflow();
    return static_cast<int>(value);
}

}  // namespace lomar::exact
