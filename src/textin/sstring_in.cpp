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

char sstring_in::peek_non_white() {
    sstring_in::skip_white();
    return text[pos];
}

void sstring_in::set_text(const char* text_) {
    text = text_;
    pos = 0;
}

void vstring_in::skip_white() {
    while (pos != size && white_set_3.contains(text[pos])) ++pos;
}

char vstring_in::peek_non_white() {
    vstring_in::skip_white();
    return vstring_in::peek();
}

void vstring_in::set_text(const char* text_) {
    sstring_in::set_text(text_);
    size = static_cast<int>(std::strlen(text_));
}

char sstring_in::get() {
    if (at_end()) return 0;
    return text[pos++];
}

char sstring_in::get_non_white() {
    skip_white();
    return get();
}

void sstring_in::back() {
    if (pos >= 1) --pos;
}

void sstring_in::skip_token() {
    const char* const end = bound();
    const char* p = current();
    while (p != end && !token_end_set.contains(*p)) ++p;
    move_to(p);
}

void sstring_in::skip_white_token() {
    skip_white();
    skip_token();
}

void sstring_in::skip_line() {
    const char* const end = bound();
    const char* p = current();
    while (!ended(p, end) && *p != '\n') ++p;
    move_to(ended(p, end) ? p : p + 1);
}

void sstring_in::skip_newline() {
    if (peek() == '\n') advance();
}

void sstring_in::skip_all() {
    const char* const end = bound();
    move_to(end != nullptr ? end : current() + std::strlen(current()));
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
    const char* const end = bound();
    const char* p = current();
    while (!ended(p, end) && *p != c) ++p;
    move_to(p);
    if (!ended(p, end)) {
        if ((flags & stay_on_found) == 0) advance();
        return 1;
    }
    if ((flags & throw_on_failure) != 0) {
        (error_builder_3() << "Cannot find" << c << "in stream" << stream_name()).fail();
    }
    return 0;
}

void sstring_in::skip_past(char c) {
    const char* const end = bound();
    const char* p = current();
    while (p != end && *p != 0 && *p != c) ++p;
    if (p == end || *p == 0) {
        move_to(p);
        (error_builder_3() << "Cannot find" << c << "in stream" << stream_name()).fail();
    }
    move_to(p + 1);
}

int sstring_in::find_tag(const char* tag, int flags) {
    while (peek_non_white() != 0) {
        if (range_equal(token(), tag)) return 1;
    }
    if ((flags & throw_on_failure) != 0) (error_builder_3() << "Cannot find:" << tag).fail();
    return 0;
}

int sstring_in::find_text(const char* what) {
    const char* const end = bound();
    for (const char* p = current(); !ended(p, end); ++p) {
        int i = 0;
        while (what[i] != 0 && !ended(p + i, end) && p[i] == what[i]) ++i;
        if (what[i] == 0) {
            move_to(p + i);
            return 1;
        }
    }
    skip_all();
    return 0;
}

int sstring_in::skip_to_set(const char_set_3& set) {
    const char* const end = bound();
    const char* p = current();
    while (!ended(p, end) && !set.contains(*p)) ++p;
    move_to(p);
    return !ended(p, end);
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

// The matching `close` for a position behind an `open`, or null.
const char* sstring_in::find_block_end(char open, char close) const {
    const char* const end = bound();
    int depth = 1;
    for (const char* p = current(); !ended(p, end); ++p) {
        if (*p == close && --depth == 0) return p;
        if (*p == open) ++depth;
    }
    return nullptr;
}

char_range_3 sstring_in::block_range() {
    const char* const begin = current();
    const char* const close = find_block_end('{', '}');
    if (close == nullptr) {
        skip_all();
        (error_builder_3() << "Unclosed block" << '}').fail();
    }
    move_to(close + 1);
    return {begin, close};
}

void sstring_in::skip_block(char open, char close) {
    const char* const end = find_block_end(open, close);
    if (end == nullptr) {
        skip_all();
        (error_builder_3() << "Unclosed: " << close).fail();
    }
    move_to(end + 1);
}

int sstring_in::more_in_block() {
    const char c = peek_non_white();
    if (c == '}') advance();
    return c != 0 && c != '}';
}
