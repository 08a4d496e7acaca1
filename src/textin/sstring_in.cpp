#include "textin/sstring_in.h"

#include "foundation/except_3.h"

namespace {

constexpr char_set_3 make_token_end_set() {
    char_set_3 set(" \r\t\n");
    set.insert(0);
    return set;
}

constexpr char_set_3 token_end_set = make_token_end_set();
constexpr char_set_3 list_field_end_set(",;}");

}  // namespace

void sstring_in::skip_white() {
    while (white_set_3.contains(text[pos])) ++pos;
}

unsigned char sstring_in::peek_non_white() {
    skip_white();
    return peek();
}

void sstring_in::set_text(const char* text_) {
    text = text_;
    pos = 0;
}

void vstring_in::skip_white() {
    while (pos != size && white_set_3.contains(text[pos])) ++pos;
}

void vstring_in::set_text(const char* text_) {
    sstring_in::set_text(text_);
    size = static_cast<int>(std::strlen(text_));
}

unsigned char sstring_in::get() {
    if (at_end()) return 0;
    return byte_of(text[pos++]);
}

unsigned char sstring_in::get_non_white() {
    skip_white();
    return get();
}

void sstring_in::back() {
    if (pos >= 1) --pos;
}

// Whether a character is left that isn't `c`, and the like.
bool sstring_in::at_other_than(char c) const { return !at_end() && peek() != byte_of(c); }
bool sstring_in::outside(const char_set_3& set) const { return !at_end() && !set.contains(peek()); }

void sstring_in::skip_token() {
    while (outside(token_end_set)) ++pos;
}

void sstring_in::skip_white_token() {
    skip_white();
    skip_token();
}

void sstring_in::skip_line() {
    while (at_other_than('\n')) ++pos;
    get();
}

void sstring_in::skip_newline() {
    if (peek() == '\n') advance();
}

void sstring_in::skip_all() {
    while (!at_end()) ++pos;
}

char_range_3 sstring_in::token() {
    skip_white();
    const char* const begin = current();
    skip_token();
    return {begin, current()};
}

const string_out& sstring_in::range_text(char_range_3 range) {
    static string_out copy;
    copy.set_length(range.length());
    if (range.length() > 0) {
        std::memcpy(copy.p, range.begin, static_cast<std::size_t>(range.length()));
    }
    return copy;
}

int sstring_in::range_equal(char_range_3 range, const char* text) {
    const char* p = range.begin;
    for (; p != range.end; ++p, ++text) {
        if (*p != *text || *text == 0) return 0;
    }
    return *text == 0;
}

void sstring_in::read_word(string_3& out) {
    if (peek_non_white() != '"') {
        const char_range_3 word = token();
        out.assign_range(word.begin, word.length());
        return;
    }
    advance();
    const char* const begin = current();
    skip_past('"');
    out.assign_range(begin, static_cast<int>(current() - begin) - 1);
}

int sstring_in::at_quote() {
    if (peek_non_white() != '"') return 0;
    advance();
    return 1;
}

int sstring_in::find_char(char c, int flags) {
    while (at_other_than(c)) ++pos;
    if (!at_end()) {
        if ((flags & stay_on_found) == 0) advance();
        return 1;
    }
    if ((flags & throw_on_failure) != 0) {
        (error_builder_3() << "Cannot find" << c << "in stream" << stream_name()).fail();
    }
    return 0;
}

void sstring_in::skip_past(char c) {
    while (at_other_than(c) && peek() != 0) ++pos;
    if (at_end() || peek() != byte_of(c)) {
        (error_builder_3() << "Cannot find" << c << "in stream" << stream_name()).fail();
    }
    advance();
}

int sstring_in::find_tag(const char* tag, int flags) {
    while (peek_non_white() != 0) {
        if (range_equal(token(), tag)) return 1;
    }
    if ((flags & throw_on_failure) != 0) (error_builder_3() << "Cannot find:" << tag).fail();
    return 0;
}

int sstring_in::find_text(const char* what) {
    for (; !at_end(); ++pos) {
        const int start = pos;
        const char* c = what;
        for (; *c != 0 && !at_other_than(*c) && !at_end(); ++c) ++pos;
        if (*c == 0) return 1;
        pos = start;
    }
    return 0;
}

int sstring_in::skip_to_set(const char_set_3& set) {
    while (outside(set)) ++pos;
    return at_end() == 0;
}

void sstring_in::read_until(const char_set_3& set, string_out& out) {
    const char* const begin = current();
    skip_to_set(set);
    out << char_range_3{begin, current()};
}

int sstring_in::read_field(string_out& out) {
    const char* const begin = current();
    const int found = skip_to_set(list_field_end_set);
    out << char_range_3{begin, current()};
    return found;
}

int sstring_in::skip_to_field_end() { return skip_to_set(field_end_set_3); }

void sstring_in::open_block() {
    if (peek_non_white() != '{') (error_builder_3() << "Missing:" << '{').fail();
    advance();
}

// Moves to the `close` that matches for a position after an `open`; false if there is none.
bool sstring_in::find_block_end(char open, char close) {
    int depth = 1;
    for (; !at_end(); ++pos) {
        const unsigned char c = peek();
        if (c == byte_of(close) && --depth == 0) return true;
        if (c == byte_of(open)) ++depth;
    }
    return false;
}

char_range_3 sstring_in::block_range() {
    const char* const begin = current();
    if (!find_block_end('{', '}')) (error_builder_3() << "Unclosed block" << '}').fail();
    advance();
    return {begin, current() - 1};
}

void sstring_in::skip_block(char open, char close) {
    if (!find_block_end(open, close)) (error_builder_3() << "Unclosed: " << close).fail();
    advance();
}

int sstring_in::more_in_block() {
    const unsigned char c = peek_non_white();
    if (c == '}') advance();
    return c != 0 && c != '}';
}
