#include <algorithm>
#include <climits>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <string>

#include "support/expect_failure.h"
#include "support/scratch_dir.h"
#include "textin/file_in_bin.h"
#include "textout/file_out_bin.h"

namespace {

using namespace std::string_literals;

struct BinaryFiles : testing::Test {
    scratch_dir dir;
};

// The bytes of a value in the machine's order.
template <typename Value>
std::string raw(Value value) {
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

TEST_F(BinaryFiles, TestForTheEndTakesNothing) {
    write_file("a.bin", raw(-2) + "\xfftext\0\0end"s);
    file_in_bin in("\"a.bin\"");
    EXPECT_EQ(in.at_eof() + in.at_eof(), 0);
    EXPECT_EQ(in.read_int(), -2);
    EXPECT_EQ(in.at_eof(), 0);
    EXPECT_EQ(in.get_byte(), 255);
    string_3 text;
    for (const char* expected : {"text", "", "end", ""}) {
        in.read_text(text);
        EXPECT_STREQ(text.data, expected);
    }
    EXPECT_EQ(in.at_eof() + in.get_byte(), 1 + EOF);
    in.open("a.bin", open_or_throw);
    EXPECT_EQ(in.at_eof(), 0);
    in.close();
    EXPECT_EQ(in.at_eof(), 1) << "a byte looked at goes with its file";
}

TEST_F(BinaryFiles, CountsAreNotTrusted) {
    vector_4_3 numbers;
    vector_string_3 strings;
    const auto open = [](const std::string& bytes) {
        write_file("a.bin", bytes);
        return std::make_unique<file_in_bin>("a.bin");
    };
    for (const int count : {0, -1, INT_MIN}) {
        const auto in = open(raw(count) + raw(5) + raw(count) + raw(5) + "rest");
        numbers.set_n(3);
        numbers.read_binary(*in);
        strings.set_n(3);
        in->read_strings(strings);
        EXPECT_EQ(numbers.n + numbers.base + strings.n + strings.base, 0) << count;
        EXPECT_EQ(in->get_byte(), 'r') << count;
    }
    const std::string most = raw(INT_MAX) + raw(-3) + "a\0bc"s;
    open(most)->read_strings(strings);
    ASSERT_EQ(strings.n, 2);
    EXPECT_STREQ(strings[-2].data, "bc");
    EXPECT_FAILURE(list_0_3<double>().read_binary(*open(most)), " Invalid list in a.bin");
    // A list may lack a MiB of its elements, which are 0 then.
    const int mib = (1 << 20) / static_cast<int>(sizeof(int));
    for (const auto& [count, ok] : {std::pair{mib + 2, true}, std::pair{mib + 3, false}}) {
        const auto in = open(raw(count) + raw(0) + raw(7) + raw(8));
        EXPECT_EQ(message_of([&] { numbers.read_binary(*in); }).value_or(""),
                  ok ? "" : " Invalid list in a.bin");
        EXPECT_EQ(numbers.n, ok ? count : 0);
        EXPECT_EQ(ok ? numbers[0] + numbers[1] + numbers[mib + 1] : 15, 15);
    }
    const auto last = open(raw(1) + raw(INT_MAX) + raw(7));
    numbers.read_binary(*last);
    EXPECT_EQ(numbers[INT_MAX], 7);
    const std::string beyond = raw(2) + raw(INT_MAX) + raw(7) + raw(8);
    EXPECT_FAILURE(numbers.read_binary(*open(beyond)), " Invalid list in a.bin");
    list_0_3<int> from_0;
    from_0.read_binary(*open(beyond));
    EXPECT_EQ(from_0.n, 2);
}

const std::string lists = raw(2) + raw(-1) + raw(1.5) + raw(-2.5) + raw(1) + raw(3) + raw(7) +
                          raw(0) + raw(0) + raw(1) + raw(1) + raw(0.5F) + raw(2) + raw(5) + "p\0"s;
const std::string texts = raw(3) + raw(-2) + "one\0\0"s + "3\n\0"s;
const std::string values = raw(-3) + raw(1e-300) + "50%\0"s + raw(2.5F) +
                           raw(std::uint64_t{1} << 63) + "a\0b"s + raw(3) + raw(0) + "a\0b"s;

void copy(file_in_bin& in, file_out_bin& file) {
    stream_out& out = file;
    const auto list = [&](auto empty) {
        empty.read_binary(in);
        return empty;
    };
    out.write_vector_8(list(vector_8_3()));
    for (int i = 0; i < 2; ++i) out.write_vector_4(list(vector_4_3()));
    out.write_vector_4f(list(vector_4f_3()));
    out.write_vector_1(list(vector_1_3()));
    vector_string_3 strings;
    in.read_strings(strings);
    out.write_strings(strings);
    string_3 text;
    out << in.read_int() << in.read_double();
    in.read_text(text);
    out << text << 2.5F << (std::uint64_t{1} << 63);
    vector_1_3 bytes;
    bytes.set_base(5);
    for (const char c : "a\0b"s) bytes.add(c);
    out << char_range_3{&bytes[5], &bytes[5] + 3} << char_range_3{};
    file.write_bytes(bytes);
}

// A file that ends early reads as what is there, and nothing or zero bytes after that. Only the
// list of texts has no more than the texts that are there.
TEST_F(BinaryFiles, RoundTripOfAFileCutAtEachByte) {
    const std::string bytes = lists + texts + values;
    for (std::size_t n = 0; n <= bytes.size(); ++n) {
        write_file("cut.bin", bytes.substr(0, n));
        {
            file_in_bin in("cut.bin");
            file_out_bin out("copy.bin");
            copy(in, out);
        }
        const bool in_texts = n < lists.size() + texts.size();
        const std::size_t same = in_texts ? std::min(n, lists.size()) : n;
        EXPECT_EQ(read_file("copy.bin").substr(0, same), bytes.substr(0, same)) << "cut at " << n;
    }
    EXPECT_EQ(read_file("copy.bin"), bytes);
}

}  // namespace
