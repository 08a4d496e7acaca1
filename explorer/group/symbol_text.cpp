#include "group/symbol_text.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "group/message.h"

namespace lomar {

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

struct spelling {
    std::string_view typed;
    std::string_view plain;
};

// The spellings of one sign; `~` is a bar over the character before.
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

// Bars that come after their digit: a minus is put before it.
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

}  // namespace

std::string in_ascii(std::string_view typed) {
    std::string result;
    while (!typed.empty()) {
        const auto found =
            std::find_if(std::begin(spellings), std::end(spellings),
                         [&](const spelling& s) { return typed.starts_with(s.typed); });
        if (found == std::end(spellings)) {
            result += typed[0];
            typed.remove_prefix(1);
        } else {
            result += found->plain;
            typed.remove_prefix(found->typed.size());
        }
    }
    return result;
}

std::string plain_symbol(std::string_view typed) {
    std::string text = single_blanks(lower_case(in_ascii(typed)));
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

std::string lower_case(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
}

std::vector<std::string> words_of(std::string_view symbol) {
    std::vector<std::string> result;
    while (!symbol.empty()) {
        const std::size_t end = std::min(symbol.find(' '), symbol.size());
        if (end > 0) result.push_back(lower_case(symbol.substr(0, end)));
        symbol.remove_prefix(std::min(end + 1, symbol.size()));
    }
    return result;
}

std::string in_quotes(std::string_view text) {
    constexpr std::size_t longest = 60;
    std::size_t end = std::min(text.size(), longest);
    // No character of several bytes is cut in two.
    while (end > 0 && end < text.size() && (static_cast<unsigned char>(text[end]) & 0xc0) == 0x80)
        --end;
    return "'" + one_line(text.substr(0, end)) + (end < text.size() ? "...'" : "'");
}

}  // namespace lomar
