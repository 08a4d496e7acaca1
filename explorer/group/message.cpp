#include "group/message.h"

#include <cstdint>

namespace lomar {

namespace {

constexpr std::size_t longest = 2000;

// The bytes of the character of UTF-8 at the front, if it is one that can be shown; else 0.
std::size_t shown_length(std::string_view text) {
    const auto byte = [&](std::size_t i) -> std::uint32_t {
        return static_cast<unsigned char>(text[i]);
    };
    const std::uint32_t first = byte(0);
    if (first < 0x80) return first >= 0x20 && first != 0x7f ? 1 : 0;
    const std::size_t size = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
    if (first < 0xc2 || first > 0xf4 || text.size() < size) return 0;
    std::uint32_t value = first & (0x7fU >> size);
    for (std::size_t i = 1; i < size; ++i) {
        if ((byte(i) & 0xc0U) != 0x80) return 0;
        value = value << 6 | (byte(i) & 0x3fU);
    }
    const bool shortest = value >= (size == 4 ? 0x10000U : size == 3 ? 0x800U : 0x80U);
    const bool surrogate = value >= 0xd800 && value <= 0xdfff;
    const bool control = value < 0xa0 || (value >= 0x2028 && value <= 0x202e);
    return shortest && !surrogate && !control && value <= 0x10ffff ? size : 0;
}

}  // namespace

std::string one_line(std::string_view text) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string result;
    while (!text.empty()) {
        if (result.size() >= longest) return result + "...";
        const std::size_t size = shown_length(text);
        if (size > 0) {
            result += text.substr(0, size);
        } else {
            const auto byte = static_cast<unsigned char>(text[0]);
            result += "\\x";
            result += digits[byte >> 4];
            result += digits[byte & 15];
        }
        text.remove_prefix(size > 0 ? size : 1);
    }
    return result;
}

}  // namespace lomar
