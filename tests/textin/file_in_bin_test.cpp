#include "textin/file_in_bin.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <new>
#include <string>

#include "support/expect_failure.h"
#include "support/scratch_dir.h"

namespace {

using namespace std::string_literals;

// The bytes of a value in the machine's order.
template <typename Value>
std::string raw(Value value) {
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

TEST(FileInBin, TestForTheEndTakesNothing) {
    const scratch_dir dir;
    write_file("a.bin", raw(-2) + raw(0.1) + "\xfftext\0\0end"s);
    write_file("b.bin", "b");
    file_in_bin in("\"a.bin\"");
    EXPECT_EQ(in.at_eof() + in.at_eof(), 0);
    EXPECT_EQ(in.read_int(), -2);
    EXPECT_EQ(in.at_eof(), 0);
    EXPECT_EQ(in.read_double(), 0.1);
    EXPECT_EQ(in.at_eof(), 0);
    EXPECT_EQ(in.get_byte(), 255);
    for (const char* expected : {"text", "", "end", ""}) {
        string_3 text("before");
        in.read_text(text);
        EXPECT_STREQ(text.data, expected);
    }
    EXPECT_EQ(in.at_eof(), 1);
    EXPECT_EQ(in.get_byte(), EOF);
    EXPECT_EQ(in.read_int() + in.read_double(), 0);
    // A byte looked at goes with its file.
    in.open("b.bin", open_or_throw);
    EXPECT_EQ(in.at_eof(), 0);
    in.close();
    EXPECT_EQ(in.at_eof(), 1);
    EXPECT_FAILURE(in.open("no.bin", open_or_throw), " Cannot open file no.bin");
}

TEST(FileInBin, CountsAreNotTrusted) {
    const scratch_dir dir;
    list_n1_3<int> numbers;
    list_n1_3<string_3> texts;
    for (const int count : {0, -1, -2147483647 - 1}) {
        write_file("a.bin", raw(count) + raw(5) + raw(count) + raw(5) + "rest");
        file_in_bin in("a.bin");
        numbers.set_n(3);
        numbers.read_binary(in);
        EXPECT_EQ(numbers.n + numbers.base, 0) << count;
        texts.set_n(3);
        in.read_strings(texts);
        EXPECT_EQ(texts.n + texts.base, 0) << count;
        EXPECT_EQ(in.get_byte(), 'r') << count;
    }
    write_file("a.bin", raw(2147483647) + raw(-3) + "a\0bc"s);
    file_in_bin in("a.bin");
    in.read_strings(texts);
    ASSERT_EQ(texts.n, 2);
    EXPECT_STREQ(texts[-3].data, "a");
    EXPECT_STREQ(texts[-2].data, "bc");
    file_in_bin again("a.bin");
    EXPECT_THROW(list_0_3<double>().read_binary(again), std::bad_alloc);
}

}  // namespace
