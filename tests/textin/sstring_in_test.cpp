#include "textin/sstring_in.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/expect_failure.h"
#include "textin/read_arguments.h"

namespace {

string_out out;
string_3 word;

std::string shown(const char* text) { return text; }
std::string shown(int value) { return number_text(value); }
std::string shown(double value) { return number_text(value); }
std::string shown(char_range_3 range) { return {range.begin, range.end}; }

std::string arguments_in(sstring_in& in) {
    argument_list_3 list;
    read_arguments(in, list);
    std::string result;
    for (auto& item : list) result += '[' + shown({item.text, item.text + item.size}) + ']';
    return result;
}

struct operation {
    const char* code;
    std::string (*run)(sstring_in&);
    struct example {
        const char* text;
        std::string result;  // or the message that it fails with
        int pos;             // where the stream is then
    };
    std::vector<example> examples;
};

#define OPERATION(...) #__VA_ARGS__, [](auto& in) { return shown(__VA_ARGS__); }

const char bad_list[] = " Error in arguements";
const char no_brace[] = " Cannot find { in stream sstring_in";

const operation operations[] = {
    {OPERATION(in.peek()), {{"", "0", 0}, {"\xe9 ", "233", 0}}},
    {OPERATION(in.get()), {{"", "0", 0}, {" ", "32", 1}, {"\xff", "255", 1}}},
    {OPERATION(in.get_non_white()), {{" \r\t\n", "0", 4}, {" \nab", "97", 3}}},
    {OPERATION(in.peek_non_white()), {{" \r\t\n", "0", 4}, {"\v ", "11", 0}, {" {", "123", 1}}},
    {OPERATION((in.get(), in.back(), in.back(), in.get())), {{"ab", "97", 1}}},
    {OPERATION((in.skip_white_token(), "")), {{"  ab\tc", "", 4}, {" ", "", 1}}},
    {OPERATION((in.skip_line(), "")), {{"ab\r\ncd", "", 4}, {"ab\r", "", 3}, {"\n", "", 1}}},
    {OPERATION((in.skip_newline(), "")), {{"\n\n", "", 1}, {"\r\n", "", 0}}},
    {OPERATION(in.token()),
     {{" \n", "", 2}, {" xyzs{ x", "xyzs{", 6}, {"\v\xa0,\"'\rc", "\v\xa0,\"'", 5}}},
    {OPERATION(sstring_in::range_equal(in.token(), "ab")),
     {{"ab ", "1", 2}, {"abc", "0", 3}, {"a", "0", 1}, {"", "0", 0}}},
    {OPERATION(in.read_int()), {{"", "0", 0}, {" 12abc 7", "12", 6}, {"x 1", "0", 1}}},
    {OPERATION(in.read_double()), {{" ", "0", 1}, {"1.5e2;x 1", "150", 7}}},
    {OPERATION((in.read_word(word), word.data)),
     {{"", "", 0}, {"\"\"x", "", 2}, {" \"a b\n\\\" d", "a b\n\\", 8}, {" ab\" c", "ab\"", 4}}},
    {OPERATION((in.read_word(word), "")), {{" \"ab ", " Cannot find \" in stream sstring_in", 5}}},
    {OPERATION(in.at_quote()), {{" \"a", "1", 2}, {" a\"", "0", 1}}},
    {OPERATION(in.find_char('{', 0)), {{"ab{c", "1", 3}, {"abc", "0", 3}, {"", "0", 0}}},
    {OPERATION(in.find_char('{', 20)), {{"ab{c", "1", 2}, {"abc", no_brace, 3}}},
    {OPERATION((in.skip_past('{'), "")), {{"a\n{c", "", 3}, {"ab", no_brace, 2}}},
    {OPERATION(in.find_tag("ab", 0)), {{"abc ab{ {ab\nab\t{", "1", 14}, {"AB a b ", "0", 7}}},
    {OPERATION(in.find_tag("ab", 16)), {{" ab", "1", 3}, {"abc", " Cannot find: ab", 3}}},
    {OPERATION(in.find_text("aab")), {{"x aab y", "1", 5}, {"aaab", "1", 4}, {"a aa", "0", 4}}},
    {OPERATION((in.read_until(char_set_3("|"), out), out.text())), {{"x\n}|z", "+x\n}", 3}}},
    {OPERATION((in.read_field(out) == 1 ? out : out << ".").text()),
     {{"x y,", "+x y", 3}, {"\n;}", "+\n", 1}, {"}", "+", 0}, {"x|", "+x|.", 2}, {"", "+.", 0}}},
    {OPERATION(in.skip_to_field_end()), {{"x;}\r\n", "1", 3}, {"x,", "1", 1}, {"x;}", "0", 3}}},
    {OPERATION((in.open_block(), "")), {{" \n{ ", "", 3}, {" x{", " Missing: {", 1}}},
    {OPERATION((in.block_body(out), out.text())),
     {{"a { b } c } d", "+a { b } c ", 11}, {"}}", "+", 1}, {"a { b }", " Unclosed block }", 7}}},
    {OPERATION((in.skip_block('(', ')'), "")),
     {{"a(b)}c) d", "", 7}, {")", "", 1}, {"(b)", " Unclosed:  )", 3}}},
    {OPERATION(in.more_in_block()), {{"   }x", "0", 4}, {" x}", "1", 1}, {" ", "0", 1}}},
    {OPERATION(arguments_in(in).c_str()),
     {{"(f(x,(y)),g()h,)(", "[f(x,(y))][g()h][]", 16}, {" \n(  )x", "[]", 6}}},
    {OPERATION(arguments_in(in).c_str()), {{"(a b\t, c\n,3,4,5) d", "[a b\t][c\n][3][4][5]", 16}}},
    {OPERATION(arguments_in(in).c_str()), {{"a(b)", " Missing (", 0}, {"( \n", " Missing )", 3}}},
    {OPERATION(arguments_in(in).c_str()), {{"(a, ", " Missing )", 4}, {"(a(b)", bad_list, 5}}}};

// Runs a check on both kinds of stream over a text. Each copy fills a heap block of exactly its
// size, without a NUL for the vstring_in, so that a sanitizer sees every read beyond it.
template <typename Check>
void on_both(const std::string& text, Check check) {
    const std::vector<char> with_nul(text.c_str(), text.c_str() + text.size() + 1);
    const std::vector<char> without(text.begin(), text.end());
    sstring_in plain(with_nul.data());
    vstring_in stretch(without.data(), without.data() + without.size());
    SCOPED_TRACE(testing::PrintToString(text));
    check(plain);
    SCOPED_TRACE("as a vstring_in");
    check(stretch);
}

TEST(SstringIn, Operations) {
    for (const operation& op : operations) {
        SCOPED_TRACE(op.code);
        for (const auto& row : op.examples) {
            on_both(row.text, [&](sstring_in& in) {
                (out = string_out()) << '+';
                std::string result;
                const auto message = message_of([&] { result = op.run(in); });
                EXPECT_EQ(message.value_or(result), row.result);
                EXPECT_EQ(in.position(), row.pos);
            });
        }
    }
}

// Each operation, begun at each place in each prefix of a nasty text and repeated until it fails or
// gets no further, must end and stay inside.
TEST(SstringIn, NothingReadsOutside) {
    const char nasty[] = "{a \"q 'x\" /*{ b},;)((,( \0\xff\xfe{ \"\r\n\t\0}}1e9\" *//";
    for (std::size_t n = 0; n < sizeof nasty; ++n) {
        const int size = static_cast<int>(n);
        on_both(std::string(nasty, n), [&](sstring_in& in) {
            for (const operation& op : operations) {
                for (int start = 0; start <= size; ++start) {
                    int before = -1;
                    in.set_position(start);
                    out.clear();
                    const auto message = message_of([&] {
                        for (; in.pos > before; op.run(in)) before = in.pos;
                    });
                    EXPECT_EQ(message.value_or(" ")[0], ' ');
                    EXPECT_TRUE(0 <= in.pos && in.pos <= size) << op.code << start << in.pos;
                }
            }
        });
    }
}

// A stream that ends at a semicolon. All operations but those on addresses heed that.
struct statement_in : sstring_in {
    using sstring_in::sstring_in;
    int at_end() const override { return sstring_in::at_end() || text[pos] == ';'; }
    unsigned char peek() const override { return at_end() ? 0 : sstring_in::peek(); }
};

TEST(SstringIn, OverriddenEnd) {
    for (const operation& op : operations) {
        SCOPED_TRACE(op.code);
        for (const auto& row : op.examples) {
            if (std::string_view(row.text).find(';') != std::string_view::npos) continue;
            const std::string longer = row.text + std::string("; { a } , ) \" ab | \n");
            statement_in in(longer.c_str());
            (out = string_out()) << '+';
            std::string result;
            const auto message = message_of([&] { result = op.run(in); });
            EXPECT_EQ(message.value_or(result), row.result);
            EXPECT_EQ(in.position(), row.pos);
        }
    }
}

// A NUL in the stretch ends a token, but isn't the end.
TEST(VstringIn, Bounds) {
    const char text[] = "abcdef\0g";
    vstring_in whole(char_range_3{text, text + 8});
    EXPECT_EQ(shown(whole.token()), "abcdef");
    EXPECT_EQ(whole.peek() + whole.at_end(), 0);
    EXPECT_EQ(whole.find_char('g', 0), 1);
    EXPECT_EQ(whole.at_end(), 1);
    for (const std::string& next : {std::string(3000, 'x'), std::string("y")}) {
        whole.set_text(next.c_str());
        EXPECT_EQ(sstring_in::range_text(whole.token()).text(), next);
        EXPECT_NE(whole.at_end(), 0);
    }
    EXPECT_EQ(vstring_in(char_range_3{}).at_end() + vstring_in(text + 3, text).at_end(), 2);
}

}  // namespace
