#include <cstdint>
#include <gtest/gtest.h>
#include <string>

#include "foundation/platform.h"
#include "support/scratch_dir.h"
#include "textout/file_out.h"
#include "textout/row_writers.h"
#include "textout/sstring_out.h"

namespace {

// Overrides the one operation that a stream needs.
struct text_stream : stream_out {
    using stream_out::operator<<;
    stream_out& operator<<(const char* text) override {
        written += text;
        return *this;
    }
    std::string written;
};

constexpr char letters[] = "letters";
constexpr std::uint64_t above_2_53 = (std::uint64_t{1} << 53) + 1;

#define WRITES(...) [](stream_out& out) { __VA_ARGS__; }

const struct {
    void (*write)(stream_out&);
    const char* text;
} rows[] = {{WRITES(out << 12 << ' ' << "x"), "12 x"},
            {WRITES(out << (-2147483647 - 1)), "-2147483648"},
            {WRITES(out << 0.1 << ' ' << 1e20 << ' ' << -1.0 / 3), "0.1 1e+20 -0.333333333"},
            {WRITES(out << 2.5F << ' ' << 0.1F), "2.5 0.100000001"},
            {WRITES(out << above_2_53), "9007199254740992"},
            {WRITES(out << ~std::uint64_t{0}), "18446744073709551616"},
            {WRITES(out << string_3("a string\n") << string_3() << ""), "a string\n"},
            {WRITES(out << char_range_3{letters + 1, letters + 5} << char_range_3{}), "ette"},
            {WRITES(out << "100%d %s" << '%' << string_3("%n\\\xff")), "100%d %s%%n\\\xff"},
            {WRITES(write_row_4({1, -2, 13, 4}, out)), "    1   -2   13    4"},
            {WRITES(write_row_4({12345, -9999, 0, 99999}, out)), " 12345 -9999    0 99999"},
            {WRITES(write_row_3({9999, -999, -1, 7}, out)), " 9999 -999   -1"},
            {WRITES(write_cell(-2147483647 - 1, out)), " -2147483648"}};

// Every text stream turns a value into the same characters.
TEST(Streams, Forms) {
    const scratch_dir dir;
    for (const auto& row : rows) {
        stream_out none;
        text_stream least;
        sstring_out memory;
        file_out_no_buffer_3 direct;
        direct.open("direct.txt", open_or_throw);
        file_out buffered("buffered.txt");
        EXPECT_EQ(buffered.directory(), dir.path().string() + platform_separator);
        stream_out* const streams[] = {&none, &least, &memory, &direct, &buffered};
        for (stream_out* out : streams) row.write(out->self());
        direct.close();
        buffered.close();
        EXPECT_EQ(least.written, row.text);
        EXPECT_STREQ(memory.text(), row.text);
        EXPECT_EQ(read_file("direct.txt"), row.text);
        EXPECT_EQ(read_file("buffered.txt"), row.text);
    }
}

TEST(Streams, TextInMemory) {
    sstring_out out;
    stream_out& stream = out;
    stream.pop();
    const std::string text = "ab";
    for (int n = 0; n < 3; ++n) {
        EXPECT_EQ(stream.text_length(), n);
        EXPECT_EQ(stream.last(), n < 1 ? 0 : "ab"[n - 1]);
        EXPECT_EQ(stream.second_last(), n < 2 ? 0 : 'a');
        stream << "abc"[n];
    }
    stream.pop();
    static_cast<string_out&>(out) << 7;  // both sides fill one buffer
    stream << std::string(1000, 'e').c_str();
    EXPECT_EQ(out.text(), "ab7" + std::string(1000, 'e'));
    EXPECT_EQ(stream.text_length(), 1003);
}

}  // namespace
