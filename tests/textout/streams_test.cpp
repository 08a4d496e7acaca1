#include <cstdint>
#include <cstdio>
#include <gtest/gtest.h>
#include <string>

#include "foundation/console_text.h"
#include "foundation/platform.h"
#include "support/expect_failure.h"
#include "support/scratch_dir.h"
#include "textout/console.h"
#include "textout/file_out.h"
#include "textout/row_writers.h"
#include "textout/sstring_out.h"

namespace {

constexpr char letters[] = "letters";
constexpr std::uint64_t above_2_53 = (std::uint64_t{1} << 53) + 1;

#define WRITES(...) [](stream_out& out) { __VA_ARGS__; }

const struct {
    void (*write)(stream_out&);
    const char* text;
} forms[] = {{WRITES(out << -12 << ' ' << "x"), "-12 x"},
             {WRITES(out << 0.1 << ' ' << 1e20 << ' ' << -1.0 / 3), "0.1 1e+20 -0.333333333"},
             {WRITES(out << 2.5F << ' ' << 0.1F), "2.5 0.100000001"},
             {WRITES(out << above_2_53), "9007199254740992"},
             {WRITES(out << char_range_3{letters + 1, letters + 5} << char_range_3{}), "ette"},
             {WRITES(out << "100%d %s" << '%' << string_3("%n\\\xff")), "100%d %s%%n\\\xff"},
             {WRITES(write_row_4({12345, -9999, 0, 99999}, out)), " 12345 -9999    0 99999"},
             {WRITES(write_row_3({9999, -999, -1, 7}, out)), " 9999 -999   -1"}};

// Every text stream turns a value into the same characters.
TEST(Streams, Forms) {
    const scratch_dir dir;
    for (const auto& row : forms) {
        sstring_out memory;
        file_out_no_buffer_3 direct;
        direct.open("direct.txt", open_or_throw);
        file_out buffered("buffered.txt");
        EXPECT_EQ(buffered.directory(), dir.path().string() + platform_separator);
        for (stream_out* out : {&memory.self(), &direct.self(), &buffered.self()}) row.write(*out);
        direct.close();
        buffered.close();
        EXPECT_STREQ(memory.text(), row.text);
        EXPECT_EQ(read_file("direct.txt"), row.text);
        EXPECT_EQ(read_file("buffered.txt"), row.text);
    }
}

TEST(Streams, TextInMemory) {
    sstring_out out;
    stream_out& stream = out;
    stream.pop();
    stream << "ab" << 'c';
    stream.pop();
    static_cast<string_out&>(out) << 7;  // both sides fill one buffer
    EXPECT_STREQ(out.text(), "ab7");
    EXPECT_EQ(stream.second_last() + std::to_string(stream.text_length()) + stream.last(), "b37");
}

TEST(Console, StandardOutputUnlessAStreamIsPushed) {
    testing::internal::CaptureStdout();
    file_out_no_buffer_3(stdout).close();  // leaves the handle alone
    pop_console_stream();                  // nothing to pop
    console_stream() << "50% " << 1 << ' ';
    console_line();  // keeps the stream of its first use
    sstring_out outer, inner;
    push_console_stream(outer);
    write_console_text("outer");
    push_console_stream(inner);
    write_console_text("inner");
    pop_console_stream();
    write_console_text(" again");
    console_line() << "line";
    console_line().end_line();
    pop_console_stream();
    write_console_text("end");
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "50% 1  \nline \nend");
    EXPECT_STREQ(outer.text(), "outer again");
    EXPECT_STREQ(inner.text(), "inner");
}

struct FileOut : testing::Test {
    scratch_dir dir;
};

struct watched_file_out : file_out {
    using file_out::file_out;
    int capacity() const { return buffer.n_max; }
};

// `n` characters, each of which differs from its neighbours.
std::string digits(int n) {
    std::string text;
    for (int i = 0; i < n; ++i) text += static_cast<char>('0' + i % 10 + i / 10 % 7);
    return text;
}

TEST_F(FileOut, HoldsTheLastCharacters) {
    constexpr int rows[][2] = {{0, 0},       {1, 1},      {1024, 1024}, {1025, 512},
                               {1537, 1024}, {1538, 512}, {3000, 948}};  // written, held
    string_3 tail;
    for (const auto& [written, held] : rows) {
        const std::string text = digits(written);
        for (const bool at_once : {true, false}) {
            watched_file_out out("a.txt");
            if (at_once) out << text.c_str();
            for (int i = 0; !at_once && i < written; ++i) out << text.c_str()[i];
            EXPECT_EQ(out.capacity(), written > 1024 ? 2048 : 1024);
            EXPECT_EQ(out.read_tail(held + 1, tail, 0), -1) << written;
            EXPECT_EQ(out.read_tail(held, tail, 0), 0) << written;
            EXPECT_TRUE(text.ends_with(tail.data));
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
        EXPECT_GE(out.read_tail(512, tail, 0), 0);
        EXPECT_TRUE(all.ends_with(tail.data));
    }
    out.close();
    EXPECT_EQ(read_file("a.txt"), all);
}

TEST_F(FileOut, FinishTellsWhatIsMissing) {
    const std::string full = "/dev/full";
    for (const int length : {0, 1, 1025, 5000, 100000}) {
        file_out out("a.txt");
        out << digits(length).c_str();
        EXPECT_EQ(message_of([&] { out.finish(); }).value_or(""), "");
        EXPECT_EQ(read_file("a.txt"), digits(length));
        if (length == 0 || !std::filesystem::exists(full)) continue;
        out.open(full.c_str(), open_or_throw);
        out << digits(length).c_str();
        EXPECT_FAILURE(out.finish(), " Cannot write file /dev/full");
        out.open("a.txt", open_or_throw);
        EXPECT_EQ(message_of([&] { out.finish(); }).value_or(""), "");
    }
}

TEST_F(FileOut, Tails) {
    const struct {
        std::string held, text;
        int flags, start;     // the tail of the text's length, or -1
        std::string removed;  // what stays when the tail is the text
    } rows[] = {{"one, two,", ",", 0, 8, "one, two"},
                {"one, \n\r\t", ",", 1, 3, "one"},
                {"one", "none", 0, -1, "one"},
                {" \n", "\n", 1, 1, " "},
                {digits(1025) + "end \n", "end", 1, 512, digits(1025)},
                {"one \n", "", 1, 3, "one"}};
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
    file_out file("a.txt");
    stream_out& stream = file;
    stream << "abcdef";
    stream.pop();
    EXPECT_EQ(std::string({stream.second_last(), stream.last()}), "de");
    stream.set_count(5000);
    stream.set_count(2);
    stream.flush();
    EXPECT_EQ(read_file("a.txt"), "ab");
    EXPECT_EQ(stream.second_last() + stream.last() + stream.remove_tail("b", 0), 0);
    stream << 'c';
    file.close();
    EXPECT_EQ(read_file("a.txt"), "abc");
}

TEST_F(FileOut, CreatesAppendsAndReopens) {
    const auto write_and_fail = [] {
        file_out out(string_3("\"a.txt\""));
        out << "gone";
        out.reopen();
        out << "here";
        fail_with("stopped");
    };
    EXPECT_FAILURE(write_and_fail(), " stopped");
    file_out appended("a.txt", 0);
    appended.set_mode("a+b");
    appended.open(open_or_throw);
    appended << "\nnew";
    appended.close();
    EXPECT_EQ(read_file("a.txt"), "here\nnew");
    EXPECT_FAILURE(file_out(""), " Cannot open file ");
    file_out never("never.txt", 0);
    never << digits(3000).c_str();
    never.flush();
    EXPECT_FALSE(std::filesystem::exists("never.txt"));
}

}  // namespace
