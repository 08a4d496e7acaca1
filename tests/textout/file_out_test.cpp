#include "textout/file_out.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <string>

#include "foundation/platform.h"
#include "support/expect_failure.h"
#include "support/scratch_dir.h"

namespace {

struct FileOut : testing::Test {
    scratch_dir dir;
};

// `n` characters, each of which differs from its neighbours.
std::string digits(int n) {
    std::string text;
    for (int i = 0; i < n; ++i) text += static_cast<char>('0' + i % 10 + i / 10 % 7);
    return text;
}

TEST_F(FileOut, HoldsTheLastCharacters) {
    const struct {
        int written, held;
    } rows[] = {{0, 0}, {1, 1}, {1024, 1024}, {1025, 512}, {1537, 1024}, {1538, 512}, {3000, 948}};
    for (const auto& row : rows) {
        const std::string text = digits(row.written);
        for (const char* way : {"text", "range", "characters"}) {
            SCOPED_TRACE(testing::Message() << row.written << " as " << way);
            file_out out("a.txt");
            if (*way == 't') out << text.c_str();
            if (*way == 'r') out << char_range_3{text.data(), text.data() + text.size()};
            for (int i = 0; *way == 'c' && i < row.written; ++i) out << text.c_str()[i];
            EXPECT_EQ(out.last(), row.written < 1 ? 0 : text.back());
            EXPECT_EQ(out.second_last(), row.written < 2 ? 0 : text[text.size() - 2]);
            string_3 tail;
            EXPECT_EQ(out.read_tail(row.held + 1, tail, 0), -1);
            EXPECT_EQ(out.read_tail(row.held, tail, 0), 0);
            EXPECT_EQ(tail.data, text.substr(text.size() - static_cast<std::size_t>(row.held)));
            out.close();
            EXPECT_EQ(read_file("a.txt"), text);
        }
    }
    // Texts so long that they may pass the buffer by.
    std::string all = "begin";
    file_out out("a.txt");
    out << all.c_str();
    for (const int length : {100000, 3, 9000, 511, 8192, 50000}) {
        out << digits(length).c_str();
        all += digits(length);
        string_3 tail;
        EXPECT_GE(out.read_tail(512, tail, 0), 0);
        EXPECT_EQ(tail.data, all.substr(all.size() - 512));
    }
    out.close();
    EXPECT_EQ(read_file("a.txt"), all);
}

TEST_F(FileOut, Tails) {
    const struct {
        std::string held, text;
        int flags, start;     // the tail of the text's length, or -1
        std::string removed;  // what stays when the tail is the text
    } rows[] = {{"one, two,", ",", 0, 8, "one, two"},
                {"one, \n\r\t", ",", 1, 3, "one"},
                {"one, \n", ",", 0, 5, "one, \n"},
                {"one, \n", "one", 1, 1, "one, \n"},
                {"one", "one", 0, 0, ""},
                {"one", "none", 0, -1, "one"},
                {"one  ", "one  ", 1, -1, "one  "},
                {" \n", "\n", 1, 1, " "},
                {"", ",", 1, -1, ""},
                {"one \n", "", 1, 3, "one"},
                {digits(1025) + "end \n", "end", 1, 512, digits(1025)},
                {digits(1025), digits(1025), 0, -1, digits(1025)}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.held + row.text);
        file_out out("a.txt");
        out << row.held.c_str();
        string_3 tail("before");
        const int length = static_cast<int>(row.text.size());
        EXPECT_EQ(out.read_tail(length, tail, row.flags), row.start);
        EXPECT_EQ(tail.is_empty(), row.start < 0 || length == 0);
        const bool ends_in_text = row.start >= 0 && tail == row.text.c_str();
        EXPECT_EQ(out.remove_tail(row.text.c_str(), row.flags), ends_in_text);
        out.close();
        EXPECT_EQ(read_file("a.txt"), row.removed);
    }
}

TEST_F(FileOut, PopSetCountFlush) {
    file_out out("a.txt");
    stream_out& stream = out;
    stream << "abcdef";
    stream.pop();
    EXPECT_EQ(stream.last(), 'e');
    stream.set_count(2);
    EXPECT_EQ(stream.second_last(), 'a');
    stream.flush();
    EXPECT_EQ(read_file("a.txt"), "ab");
    EXPECT_EQ(stream.last(), 0);
    EXPECT_EQ(stream.remove_tail("b", 0), 0);
    stream << 'c';
    stream.set_count(5000);
    string_3 tail;
    EXPECT_EQ(stream.read_tail(5000, tail, 0), 0);
    stream.set_count(1);
    for (int i = 0; i < 2; ++i) {
        out.close();
        EXPECT_EQ(read_file("a.txt"), "abc");
    }
}

TEST_F(FileOut, CreatesAppendsAndReopens) {
    write_file("a.txt", "old\n");
    file_out appended("a.txt", 0);
    EXPECT_EQ(read_file("a.txt"), "old\n");
    appended.set_mode("a+b");
    appended.open(open_or_throw);
    appended << "new\n";
    appended.close();
    EXPECT_EQ(read_file("a.txt"), "old\nnew\n");
    const auto write_and_fail = [] {
        file_out out(string_3("\"a.txt\""));
        out << "gone";
        out.reopen();
        out << "here";
        fail_with("stopped");
    };
    EXPECT_FAILURE(write_and_fail(), " stopped");
    EXPECT_EQ(read_file("a.txt"), "here");
    const std::string separator(1, platform_separator);
    EXPECT_FAILURE(file_out("no/a.txt"), " Cannot open file no" + separator + "a.txt");
    EXPECT_FAILURE(file_out(""), " Cannot open file ");
    file_out never("never.txt", 0);
    never << digits(3000).c_str();
    never.flush();
    never.close();
    EXPECT_FALSE(std::filesystem::exists("never.txt"));
}

TEST_F(FileOut, AttachedHandleStaysOpen) {
    std::FILE* const handle = std::fopen("a.txt", "w+b");
    ASSERT_NE(handle, nullptr);
    {
        file_out_no_buffer_3 out(handle);
        out << "one " << 2 << '\n';
        out.close();
        out << "closed";
    }
    std::fputs("more", handle);
    std::fclose(handle);
    EXPECT_EQ(read_file("a.txt"), "one 2\nmore");
}

}  // namespace
