#pragma once

#include "foundation/string_3.h"
#include "foundation/string_out.h"
#include "foundation/text.h"

// Reading text that is in memory. All readers of files split it in the same way:
//
//     white space   " \t\r\n" in any number
//     token         what is between white space, so that `xyzs{` is a single token
//     number        a token; int_of_text and double_of_text make the best of it
//     block         what is between `{` and its `}`, inner blocks included
//
// Operations that fail throw an except_3* (foundation/except_3.h).

/// Flag bits of the searches.
inline constexpr int stay_on_found = 4;      ///< don't pass the character that was looked for
inline constexpr int throw_on_failure = 16;  ///< a search without success fails

/// Walks through a text that somebody else keeps, up to its NUL.
class sstring_in {
public:
    explicit sstring_in(const char* text_ = "") noexcept : text(text_) {}
    sstring_in(const sstring_in&) = default;
    sstring_in& operator=(const sstring_in&) = default;
    virtual ~sstring_in() = default;

    /// 1 when everything was passed.
    virtual int at_end() const { return text[pos] == 0; }
    /// Looks at the next character, as 0 to 255, without passing it; 0 if none is left.
    virtual unsigned char peek() const { return byte_of(text[pos]); }
    virtual void skip_white();
    virtual unsigned char peek_non_white();
    /// Takes a new text and starts at its beginning.
    virtual void set_text(const char* text_);
    virtual const char* file_name() const { return ""; }
    virtual const char* directory() const { return ""; }
    /// What to call the stream in a message.
    virtual const char* stream_name() const { return "sstring_in"; }
    virtual int good() const { return 1; }
    virtual int position() const { return pos; }
    virtual void close() {}
    virtual int is_file() const { return 0; }
    virtual int tag() const { return -1; }

    // All that follows asks at_end and peek, so that a class which overrides them is heard.

    // Moving

    /// Passes a character and gives it, as 0 to 255; 0 if none is left.
    unsigned char get();
    /// skip_white, then get.
    unsigned char get_non_white();
    /// As get, but only for where peek() has shown that a character is left.
    void advance() { ++pos; }
    /// One character back, unless at the beginning.
    void back();
    /// What is left, as an address in `text`.
    const char* current() const { return text + pos; }
    void set_position(int n) { pos = n; }
    /// Passes what is left of a token.
    void skip_token();
    void skip_white_token();
    /// Passes what is left of a line, its LF too.
    void skip_line();
    /// Passes an LF if one comes next.
    void skip_newline();
    /// Passes everything.
    void skip_all();

    // Tokens and numbers

    /// Passes white space and a token, and gives the token: an empty range if none is left.
    char_range_3 token();
    int read_int() { return int_of_text(range_text(token()).text()); }
    double read_double() { return double_of_text(range_text(token()).text()); }
    /// Copies the range and adds a NUL. All calls share the copy: use it before the next one.
    static const string_out& range_text(char_range_3 range);
    /// Whether a range and a text read the same, as 1 or 0.
    static int range_equal(char_range_3 range, const char* text);
    /// Reads a token, or all between two double quotes. Fails when the closing one is missing.
    void read_word(string_3& out);
    /// Passes white space and, if it comes next, a double quote; 1 if it did.
    int at_quote();

    // Searching

    // They pass what they look for, and all before it. What isn't there leaves nothing more to
    // read, and gives 0 where finding it gives 1.

    /// Looks for a character. `flags` may be stay_on_found and throw_on_failure.
    int find_char(char c, int flags);
    /// Looks for a character that must be there: fails without it.
    void skip_past(char c);
    /// Looks for the token `tag`. `flags` may be throw_on_failure.
    int find_tag(const char* tag, int flags);
    /// Looks for a text, which may be a part of a token.
    int find_text(const char* what);
    /// Appends the text before the next character of `set` to `out`, and stops on that one.
    void read_until(const char_set_3& set, string_out& out);
    /// As read_until, for a comma, a semicolon or a `}`.
    int read_field(string_out& out);
    /// Stops on the next comma or line end.
    int skip_to_field_end();

    // Blocks

    /// Passes white space and `{`; fails on anything else.
    void open_block();
    // The next three begin after the opening brace and pass the closing one; they fail if it is
    // missing.

    /// Appends the contents of the block, with the inner blocks, to `out`.
    void block_body(string_out& out) { out << block_range(); }
    /// Gives the contents in place, without a copy.
    char_range_3 block_range();
    /// Passes the block. Other characters may be used for the braces.
    void skip_block(char open, char close);
    /// Whether more of a block follows after white space, as 1 or 0. Passes the `}` that says no;
    /// if the text ends, the block does so, too.
    int more_in_block();

    const char* text;
    int pos = 0;

protected:
    static unsigned char byte_of(char c) { return static_cast<unsigned char>(c); }

private:
    bool at_other_than(char c) const;
    bool outside(const char_set_3& set) const;
    int skip_to_set(const char_set_3& set);
    bool find_block_end(char open, char close);
};

/// Reads a part of a text in its place, as if the text ended there.
class vstring_in : public sstring_in {
public:
    vstring_in() noexcept = default;
    explicit vstring_in(char_range_3 range) : vstring_in(range.begin, range.end) {}
    vstring_in(const char* begin, const char* end)
        : sstring_in(begin != nullptr ? begin : ""),
          size(end < begin ? 0 : static_cast<int>(end - begin)) {}

    int at_end() const override { return pos == size; }
    unsigned char peek() const override { return pos == size ? byte_of(0) : byte_of(text[pos]); }
    void skip_white() override;
    void set_text(const char* text_) override;

    int size = 0;
};

/// Blank, CR, TAB and LF.
inline constexpr char_set_3 white_set_3(" \r\t\n");

/// What may follow a row of an operator.
inline constexpr char_set_3 field_end_set_3("\r\n,");
