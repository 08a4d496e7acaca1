#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "foundation/heap_watch.h"
#include "foundation/not_found.h"
#include "foundation/platform.h"
#include "support/expect_failure.h"
#include "support/scratch_dir.h"
#include "textin/file_in.h"
#include "textout/console.h"
#include "textout/sstring_out.h"

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

const std::string sep(1, platform_separator);
const bool drives = platform_separator == '\\';
constexpr char unclosed[] = " Unclosed comment block";

struct Files : testing::Test {
    scratch_dir dir;
    const std::string here = dir.path().string() + sep;
};

TEST_F(Files, NamesAndDirectories) {
    const struct {
        std::string given, name, part;
    } rows[] = {{"", "", ""},
                {"x//y/a", "x//y/a", "x//y/"},
                {"\"x/a b\"", "x/a b", "x/"},
                {"x\\a", "x\\a", drives ? "x\\" : ""},
                {"x/c:a", "x/c:a", drives ? "x/c:" : "x/"},
                {"\"" + sep + "x" + sep + "a\"", sep + "x" + sep + "a", sep + "x" + sep}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.given);
        file_io file;
        file.set_name(row.given.c_str());
        EXPECT_EQ(file.file_name(), row.name);
        EXPECT_EQ(file.directory(), row.part.starts_with(sep) ? row.part : here + row.part);
    }
    EXPECT_EQ(dir_start(""), not_found);
}

TEST_F(Files, OpenFlags) {
    write_file("a.txt", "x");
    const std::string message = "Cannot open file no" + sep + "a.txt";
    for (const int flags : {0, 16, 32, 48}) {
        SCOPED_TRACE(flags);
        sstring_out console;
        push_console_stream(console);
        file_io file;
        file.set_mode("rb");
        const auto failure = message_of([&] { EXPECT_EQ(file.open("no/a.txt", flags), 0); });
        EXPECT_EQ(failure.value_or(""), (flags & 16) != 0 ? " " + message : "");
        EXPECT_EQ(console.text(), flags == 32 ? message + "\n" : "");
        EXPECT_EQ(file.open("\"a.txt\"", flags), 1);
        pop_console_stream();
    }
}

TEST_F(Files, Existing) {
    fs::create_directory("sub");
    write_file("a.txt", "x");
    EXPECT_EQ(file_exists("a.txt") + file_size("a.txt"), 2);
    EXPECT_EQ(remove_file("\"a.txt\""), 1);
    EXPECT_FALSE(fs::exists("a.txt"));
    for (const char* name : {"a.txt", "sub", "no/a.txt", ""}) {
        EXPECT_EQ(file_exists(name) + remove_file(name), 0) << name;
    }
    EXPECT_EQ(file_size("a.txt"), 0);
    write_file("a.txt", "x");
    EXPECT_GE(fail_each_request([](std::size_t failing) {
                  int there = 1;  // for want of memory there is no answer
                  const bool complete = survives(failing, [&] { there = file_exists("a.txt"); });
                  EXPECT_EQ(there, 1);
                  return complete;
              }),
              1);
    fs::resize_file("a.txt", 0x80000001U);  // no text can be so long
    EXPECT_EQ(file_size("a.txt"), 2147483647);
    fs::permissions("a.txt", fs::perms::owner_read);
    const bool root = static_cast<bool>(std::ofstream("a.txt", std::ios::app));
    EXPECT_EQ(file_exists("a.txt"), root);
}

TEST_F(Files, CurrentDirectory) {
    string_3 text;
    fs::current_path(dir.path().root_path());
    current_dir_slash(text);
    EXPECT_EQ(text.data, dir.path().root_path().string());
    fs::current_path(dir.path());
    for (int i = 0; !drives && i < 5; ++i) {  // no path can be too long on drives
        const std::string name(200, 'd');
        fs::create_directory(name);
        fs::current_path(name);
    }
    EXPECT_EQ(message_of([&] { current_dir(text); }).value_or(""), drives ? "" : " getcwd error");
}

TEST_F(Files, LoadBytes) {
    const std::string big(70000, 'x');
    const struct {
        std::string bytes;
        int flags;
        std::string text;
    } rows[] = {{"a\0\0b\0"s, 3, "a  b "},    {"a\r\nb\r", 3, "a \nb "},
                {"a\r\n\0b"s, 11, "a\r\n b"}, {"'b /* \xff", 3, "'b /* \xff"},
                {"'\0\r\nx'"s, 7, "   \nx "}, {big + "'", 7, big + " "}};
    for (const auto& row : rows) {
        write_file("a.txt", row.bytes);
        const file_in in("a.txt", row.flags);
        EXPECT_EQ(in.text, row.text);
    }
}

TEST_F(Files, ReopenAndClose) {
    fs::create_directory("sub");
    write_file("a.txt", "one two");
    write_file("sub/a b.txt", "other 'text");
    file_in in("a.txt", file_in::load_text | file_in::drop_comments);
    EXPECT_NE(in.at_end(), 0);
    EXPECT_EQ(in.open(open_or_throw), 1);
    EXPECT_STREQ(in.current(), "one two");
    EXPECT_EQ(in.open("\"sub/a b.txt\"", open_or_throw), 1);
    EXPECT_STREQ(in.current(), "other      ");
    const sstring_in& stream = in;
    EXPECT_EQ(stream.directory() + ("|"s + stream.file_name()),
              here + "sub/|sub" + sep + "a b.txt");
    EXPECT_FAILURE(in.skip_past('{'), " Cannot find { in stream sub" + sep + "a b.txt");
    in.get();
    in.set_mode("");
    in.close();
    EXPECT_STREQ(in.current(), "");
    EXPECT_EQ(in.open("a.txt", open_or_throw), 1) << "in the mode r";
    EXPECT_EQ(file_in("a.txt", file_in::open_now).tag(), stream.tag() + 1);
}

TEST(BlankComments, Blanks) {
    const char* const rows[][2] = {
        {"'/*\nx*/", "   \nx*/"},   {"\"a'b\" c\n\"", "\"a     \n\""},
        {"/*/x*/y", "      y"},     {"/ \xff*/x /*'*/y", "/ \xff*/x      y"},
        {"/*/**/*/x", "        x"}, {"//*x*///", "/     //"},
        {"/*/", unclosed},          {"/*\na'\n\"*/b", "         b"},
        {"/* /* */", unclosed}};
    for (const auto& [text, expected] : rows) {
        const auto size = static_cast<std::ptrdiff_t>(std::strlen(text));
        for (std::ptrdiff_t n = 0; n <= size; ++n) {  // whatever the cut, it touches nothing beyond
            std::vector<char> copy(text, text + n);
            copy.push_back(0);
            const auto message = message_of([&] { blank_comments(copy.data()); });
            EXPECT_EQ(message.value_or(unclosed), unclosed) << text;
            EXPECT_EQ(copy.back(), 0) << text;
            const std::string result = message.value_or(copy.data());
            EXPECT_TRUE(n < size || result == expected) << text << " gave " << result;
        }
    }
}

}  // namespace
