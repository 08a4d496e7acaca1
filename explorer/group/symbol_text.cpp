#include "group/symbol_text.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace lomar {

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

struct spelling {
    std::string_view typed;
    std::string_view plain;
};

// What stands for one sign; `~` is a bar over the character before.
constexpr spelling spellings[] = {
    {"\xe2\x88\x92", "-"},
    {"\xe2\x80\x90", "-"},
    {"\xe2\x80\x91", "-"},
    {"\xe2\x80\x92", "-"},
    {"\xe2\x80\x93", "-"},
    {"\xe2\x80\x94", "-"},
    {"\xe2\x80\xbe", "-"},
    {"\xc2\xaf", "-"},
    {"\xcc\x85", "~"},
    {"\xcc\x84", "~"},
    {"\xe2\x82\x81", "_1"},
    {"\xe2\x82\x82", "_2"},
    {"\xe2\x82\x83", "_3"},
    {"\xe2\x82\x84", "_4"},
    {"\xe2\x82\x85", "_5"},
    {"\xe2\x82\x86", "_6"},
    {"\xc2\xb9", "^1"},
    {"\xc2\xb2", "^2"},
    {"\xc2\xb3", "^3"},
    {"\xe2\x81\xb0", "^0"},
    {"\xe2\x81\xb4", "^4"},
    {"\xe2\x81\xb5", "^5"},
    {"\xe2\x81\xb6", "^6"},
    {"\xe2\x81\xb7", "^7"},
    {"\xe2\x81\xb8", "^8"},
    {"\xe2\x81\xb9", "^9"},
    {"\xc2\xa0", " "},
    {"\xe2\x80\x89", " "},
    {"\xe2\x80\xaf", " "},
    {"\xe2\x81\x84", "/"},
    {"\xe2\x88\x95", "/"},
    {"\xe2\x80\xb2", "'"},
    {"\xe2\x80\x99", "'"},
    {"\xe2\x80\xb3", "\""},
    {"\xe2\x80\x9d", "\""},
    {"\\overline", "-"},
    {"\\bar", "-"},
    {"\\mathrm", ""},
    {"\\rm", ""},
    {"\t", " "},
    {"\n", " "},
    {"\r", " "},
};

std::string in_ascii(std::string_view typed) {
    std::string result;
    while (!typed.empty()) {
        const auto found =
            std::find_if(std::begin(spellings), std::end(spellings),
                         [&](const spelling& s) { return typed.starts_with(s.typed); });
        if (found == std::end(spellings)) {
            result += lower(typed[0]);
            typed.remove_prefix(1);
        } else {
            result += found->plain;
            typed.remove_prefix(found->typed.size());
        }
    }
    return result;
}

// Bars that come after their digit: a minus goes before it.
void move_bars(std::string& text) {
    for (const std::string_view bar : {"~", "bar"}) {
        for (std::size_t at = text.find(bar); at != std::string::npos;
             at = text.find(bar, at + 1)) {
            if (at > 0 && is_digit(text[at - 1])) {
                text.erase(at, bar.size());
                text.insert(at - 1, "-");
            } else if (at + bar.size() < text.size() && is_digit(text[at + bar.size()])) {
                text.replace(at, bar.size(), "-");
            }
        }
    }
}

std::string_view without_quotes(std::string_view text) {
    const bool is_quoted = text.size() > 1 && text.front() == text.back() &&
                           (text.front() == '\'' || text.front() == '"');
    return is_quoted ? text.substr(1, text.size() - 2) : text;
}

std::string single_blanks(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c != ' ' || (!result.empty() && result.back() != ' ')) result += c;
    }
    if (!result.empty() && result.back() == ' ') result.pop_back();
    return result;
}

// The length of the UTF-8 sequence that a text begins with; 0 if it is none.
std::size_t utf8_length(std::string_view text) {
    const auto first = static_cast<unsigned char>(text[0]);
    const std::size_t length = first < 0x80   ? 1
                               : first < 0xc2 ? 0
                               : first < 0xe0 ? 2
                               : first < 0xf0 ? 3
                               : first < 0xf5 ? 4
                                              : 0;
    if (length > text.size()) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((static_cast<unsigned char>(text[i]) & 0xc0) != 0x80) return 0;
    }
    return length;
}

// Control characters of either half of Latin 1, and the marks that turn the direction of writing.
bool is_control(std::string_view sequence) {
    const auto first = static_cast<unsigned char>(sequence[0]);
    if (sequence.size() == 1) return first < 0x20 || first == 0x7f;
    const auto second = static_cast<unsigned char>(sequence[1]);
    if (sequence.size() == 2) return first == 0xc2 && second < 0xa0;
    return first == 0xe2 && (second == 0x80 || second == 0x81) &&
           static_cast<unsigned char>(sequence[2]) >= 0xa6;
}

void append_escaped(std::string& out, std::string_view bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    for (const char c : bytes) {
        const auto value = static_cast<unsigned char>(c);
        out += "\\x";
        out += digits[value >> 4];
        out += digits[value & 15];
    }
}

}  // namespace

std::string plain_symbol(std::string_view typed) {
    std::string text = single_blanks(in_ascii(typed));
    move_bars(text);
    return single_blanks(without_quotes(text));
}

std::string squeezed(std::string_view plain) {
    std::string result;
    for (const char c : plain) {
        if (std::string_view(" _()[]{}$").find(c) == std::string_view::npos) result += c;
    }
    return result;
}

std::string quoted(std::string_view text) {
    constexpr std::size_t longest = 60;
    std::string result = "'";
    std::size_t done = 0;
    while (done < text.size() && done < longest) {
        const std::size_t length = utf8_length(text.substr(done));
        const std::string_view piece = text.substr(done, std::max<std::size_t>(length, 1));
        if (length == 0 || is_control(piece)) {
            append_escaped(result, piece);
        } else {
            result += piece;
        }
        done += piece.size();
    }
    return result + (done < text.size() ? "...'" : "'");
}

}  // namespace lomar
