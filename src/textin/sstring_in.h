#pragma once

#include "foundation/string_3.h"
#include "foundation/string_out.h"
#include "foundation/text.h"

// Streams over text in memory, and the lexical grammar that all text files share:
//
// - White space is any run of blank, CR, TAB and LF.
// - A token is a maximal run of other characters: `xyzs{` is one token.
// - A number is a token given to int_of_text or double_of_text.
// - A block is `{`, a body and the matching `}`; blocks nest.
//
// Every failure is an except_3 (foundation/except_3.h).

/// Flag bits of the searches.
inline constexpr int stay_on_found = 4;      ///< stop on the character found, not behind it
inline constexpr int throw_on_failure = 16;  ///< fail when nothing is found

/// A position in a NUL-terminated text. The stream doesn't own the text, which must outlive it.
class sstring_in {
public:
    explicit sstring_in(const char* text_ = "") noexcept : text(text_) {}
    sstring_in(const sstring_in&) = default;
    sstring_in& operator=(const sstring_in&) = default;
    virtual ~sstring_in() = default;

    /// Nonzero at the end of the text.
    virtual int at_end() const { return text[pos] == 0; }
    /// The next character, or NUL at the end; the position stays.
    virtual char peek() const { return text[pos]; }
    virtual void skip_white();
    virtual char peek_non_white();
    /// Takes a new text and starts at its beginning.
    virtual void set_text(const char* text_);
    virtual const char* file_name() const { return ""; }
    virtual const char* directory() const { return ""; }
    /// The name that messages give to the stream.
    virtual const char* stream_name() const { return "sstring_in"; }
    virtual int good() const { return 1; }
    virtual int position() const { return pos; }
    virtual void close() {}
    virtual int is_file() const { return 0; }
    virtual int tag() const { return -1; }

    // Moving

    /// The next character, which is passed; 0 at the end.
    char get();
    /// skip_white, then get.
    char get_non_white();
    /// Passes one character without any test: only where a character is known to be there.
    void advance() { ++pos; }
    /// One character back, unless at the beginning.
    void back();
    /// The address of the next character.
    const char* current() const { return text + pos; }
    void set_position(int n) { pos = n; }
    /// Moves to the next white character or the end.
    void skip_token();
    void skip_white_token();
    /// Moves behind the next LF, or to the end.
    void skip_line();
    /// Passes the next character if it is an LF.
    void skip_newline();
    /// Moves to the end.
    void skip_all();

    // Tokens and numbers

    /// Skips white space and passes the next token; the range is empty at the end of the text.
    char_range_3 token();
    int read_int() { return int_of_text(range_text(token()).text()); }
    double read_double() { return double_of_text(range_text(token()).text()); }
    /// Copies a range to a text that lasts until the next call.
    static const string_out& range_text(char_range_3 range);
    /// 1 if the range holds exactly the characters of the text.
    static int range_equal(char_range_3 range, const char* text);
    /// Reads a token, or all between two double quotes. Fails when the closing one is missing.
    void read_word(string_3& out);
    /// Passes a double quote behind white space; 1 if there was one.
    int at_quote();

    // Searching

    /// Moves behind the next `c`, or onto it with stay_on_found, and gives 1. At the end of the
    /// text gives 0, or fails with throw_on_failure.
    int find_char(char c, int flags);
    /// Moves behind the next `c`; fails when there is none.
    void skip_past(char c);
    /// Moves behind the next token that equals `tag`, and gives 1. At the end of the text gives 0,
    /// or fails with throw_on_failure.
    int find_tag(const char* tag, int flags);
    /// Moves behind the next occurrence of a text, also within tokens, and gives 1; or 0.
    int find_text(const char* what);
    /// Appends characters up to the next one in the set, or the end.
    void read_until(const char_set_3& set, string_out& out);
    /// Appends characters up to the next `,`, `;` or `}`, and gives 1; or 0 at the end.
    int read_field(string_out& out);
    /// Moves to the next CR, LF or comma, and gives 1; or 0 at the end.
    int skip_to_field_end();

    // Blocks

    /// Passes white space and `{`; fails on anything else.
    void open_block();
    /// Behind an opening brace: appends all up to the brace that closes the block and passes that
    /// brace. Inner braces are counted and copied. Fails when the block isn't closed.
    void block_body(string_out& out) { out << block_range(); }
    /// As block_body, but gives the range of the body without copying it.
    char_range_3 block_range();
    /// Behind an `open` character: passes all up to the matching `close`. Fails when there is none.
    void skip_block(char open, char close);
    /// 0 at the end of the text, and at a `}`, which is passed; else 1.
    int more_in_block();

    const char* text;
    int pos = 0;

protected:
    /// One past the last character, or null when a NUL ends the text.
    virtual const char* bound() const { return nullptr; }

private:
    bool ended(const char* p, const char* end) const { return p == end || (!end && *p == 0); }
    void move_to(const char* p) { pos = static_cast<int>(p - text); }
    int skip_to_set(const char_set_3& set);
    const char* find_block_end(char open, char close) const;
};

/// A stream over a stretch of a larger text, which need not end in a NUL.
class vstring_in : public sstring_in {
public:
    vstring_in() noexcept = default;
    explicit vstring_in(char_range_3 range) : vstring_in(range.begin, range.end) {}
    vstring_in(const char* begin, const char* end)
        : sstring_in(begin != nullptr ? begin : ""),
          size(end < begin ? 0 : static_cast<int>(end - begin)) {}

    int at_end() const override { return pos == size; }
    char peek() const override { return pos == size ? '\0' : text[pos]; }
    void skip_white() override;
    char peek_non_white() override;
    void set_text(const char* text_) override;

    int size = 0;

protected:
    const char* bound() const override { return text + size; }
};

/// Blank, CR, TAB and LF.
inline constexpr char_set_3 white_set_3(" \r\t\n");

/// The characters that end a row of an operator: CR, LF and comma.
inline constexpr char_set_3 field_end_set_3("\r\n,");
