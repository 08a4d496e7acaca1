#include "textin/file_in.h"

#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>

#include "foundation/platform.h"
#include "support/expect_failure.h"
#include "support/scratch_dir.h"

namespace {

using namespace std::string_literals;

struct FileIn : testing::Test {
    scratch_dir dir;
};

TEST_F(FileIn, LoadsBytes) {
    const std::string unclosed = " Unclosed comment block";
    const std::string big(70000, 'x');
    const struct {
        std::string bytes;
        int flags;
        std::string text;  // or the message of the failure
    } rows[] = {{"", 7, ""},
                {"a\0\0b\0"s, 3, "a  b "},
                {"a\r\nb\r", 3, "a \nb "},
                {"a\r\n\0b"s, 11, "a\r\n b"},
                {"'b /* \xff", 3, "'b /* \xff"},
                {big + "'", 7, big + " "},
                // Comments to the end of the line.
                {"a'b\nc", 7, "a  \nc"},
                {"'\0\r\nx'"s, 7, "   \nx "},
                {"x'a\r\nb\r\n", 15, "x   \nb\r\n"},
                {"\"a'b\" c\n\"", 7, "\"a     \n\""},
                {"'/*\nx*/", 7, "   \nx*/"},
                // Block comments.
                {"a/**/b", 7, "a    b"},
                {"/*/x*/y", 7, "      y"},
                {"/*\na'\r\n\"*/b", 7, "          b"},
                {"/* /* */ */x", 7, "           x"},
                {"/*/**/*/x", 7, "        x"},
                {"/***/x/", 7, "     x/"},
                {"a*/b / * 'c", 7, "a*/b / *   "},
                {"//*x*///", 7, "/     //"},
                {"/*/", 7, unclosed},
                {"/* *", 7, unclosed},
                {"/* /* */", 7, unclosed},
                {"/**/ /*'*/ /* \" ", 7, unclosed}};
    for (const auto& row : rows) {
        write_file("a.txt", row.bytes);
        std::string text;
        const auto message = message_of([&] {
            const file_in in("a.txt", row.flags);
            text = in.text;
            EXPECT_EQ(in.pos, 0);
        });
        EXPECT_EQ(message.value_or(text), row.text) << testing::PrintToString(row.bytes);
    }
}

// In each prefix of a nasty text a byte stays or becomes a blank, and nothing else is touched.
TEST(BlankComments, EveryPrefix) {
    const std::string_view nasty = "a'\"/*\n\"/*'/**/ */*/ /\xff*/ /*/*/*/'*/**/ ' */\n*/ '/*";
    for (std::size_t n = 0; n <= nasty.size(); ++n) {
        const std::unique_ptr<char[]> text(new char[n + 1]);
        std::memcpy(text.get(), nasty.data(), n);
        text[n] = 0;
        const auto message = message_of([&] { blank_comments(text.get()); });
        EXPECT_EQ(message.value_or(" Unclosed comment block"), " Unclosed comment block");
        for (std::size_t i = 0; i < n; ++i) {
            EXPECT_TRUE(text[i] == nasty[i] || text[i] == ' ') << n << " " << i;
        }
        EXPECT_EQ(text[n], 0);
    }
}

TEST_F(FileIn, OpensNamesAndCloses) {
    std::filesystem::create_directory("sub");
    write_file("a.txt", "one two");
    write_file("sub/a b.txt", "other 'text");
    const std::string separator(1, platform_separator);
    const std::string name = "sub" + separator + "a b.txt";
    file_in in("a.txt", file_in::load_text | file_in::drop_comments);
    const sstring_in& stream = in;
    EXPECT_NE(in.at_end(), 0);
    EXPECT_EQ(in.open(open_or_throw), 1);
    EXPECT_EQ(in.find_tag("two", 0), 1);
    EXPECT_EQ(in.open("\"sub/a b.txt\"", open_or_throw), 1);
    EXPECT_STREQ(in.current(), "other      ");
    EXPECT_EQ(stream.file_name(), name);
    EXPECT_EQ(stream.directory(), dir.path().string() + separator + "sub/");
    EXPECT_FAILURE(in.skip_past('{'), " Cannot find { in stream " + name);
    in.set_mode("");
    EXPECT_EQ(in.open("a.txt", open_or_throw), 1);
    EXPECT_EQ(in.open("missing.txt", 0), 0);
    for (int i = 0; i < 2; ++i) {
        in.get();
        in.close();
        EXPECT_EQ(in.text + in.pos, std::string());
    }
    const file_in next("a.txt", file_in::open_now);
    EXPECT_NE(next.at_end(), 0);
    EXPECT_EQ(next.tag(), stream.tag() + 1);
    EXPECT_FAILURE(file_in("missing.txt", file_in::open_now), " Cannot open file missing.txt");
}

}  // namespace
