#include "textout/file_out_bin.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include "support/scratch_dir.h"
#include "textin/file_in_bin.h"

namespace {

using namespace std::string_literals;

// The bytes of a value in the machine's order.
template <typename Value>
std::string raw(Value value) {
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

template <typename List>
List list_of(int base, std::initializer_list<typename List::value_type> values) {
    List list;
    list.set_base(base);
    for (const auto& value : values) list.add(value);
    return list;
}

const std::string values = raw(-3) + raw(1e-300) + "50%\0"s;
const std::string lists = raw(2) + raw(-1) + raw(1.5) + raw(-2.5) + raw(1) + raw(3) + raw(7) +
                          raw(0) + raw(0) + raw(1) + raw(1) + raw(0.5F) + raw(2) + raw(5) + "p\0"s;
const std::string texts = raw(3) + raw(-2) + "one\0\0"s + "3\n\0"s;
const std::string rest =
    raw(2.5F) + raw(std::uint64_t{1} << 63) + "x\0"s + "a\0b"s + "\0"s + raw(2) + raw(0) + "qr";

TEST(FileOutBin, Bytes) {
    const scratch_dir dir;
    {
        file_out_bin file("a.bin");
        stream_out& out = file;
        EXPECT_EQ(out.is_binary(), 1);
        EXPECT_NE(out.handle(), nullptr);
        out << -3 << 1e-300 << "50%";
        out.write_vector_8(list_of<vector_8_3>(-1, {1.5, -2.5}));
        out.write_vector_4(list_of<vector_4_3>(3, {7}));
        out.write_vector_4({});
        out.write_vector_4f(list_of<vector_4f_3>(1, {0.5F}));
        out.write_vector_1(list_of<vector_1_3>(5, {'p', '\0'}));
        out.write_strings(list_of<vector_string_3>(-2, {"one", "", "3\n"}));
        out << 2.5F << (std::uint64_t{1} << 63) << string_3("x");
        const char letters[] = {'a', '\0', 'b'};
        out << char_range_3{letters, letters + 3} << char_range_3{} << '\0';
        file.write_bytes(list_of<vector_1_3>(5, {'q', 'r'}));
    }
    EXPECT_EQ(read_file("a.bin"), values + lists + texts + rest);
}

void copy(file_in_bin& in, stream_out& out) {
    const auto list = [&](auto empty) {
        empty.read_binary(in);
        return empty;
    };
    string_3 text;
    vector_string_3 strings;
    out << in.read_int() << in.read_double();
    in.read_text(text);
    out << text;
    out.write_vector_8(list(vector_8_3()));
    out.write_vector_4(list(vector_4_3()));
    out.write_vector_4(list(vector_4_3()));
    out.write_vector_4f(list(vector_4f_3()));
    out.write_vector_1(list(vector_1_3()));
    in.read_strings(strings);
    out.write_strings(strings);
    while (!in.at_eof()) out << static_cast<char>(in.get_byte());
}

// A file that ends early reads as what is there, and nothing or zero bytes behind that. Only the
// list of texts has no more than the texts that are there.
TEST(FileOutBin, RoundTripOfAFileCutAtEachByte) {
    const scratch_dir dir;
    const std::string bytes = values + lists + texts + rest;
    const std::size_t before_texts = bytes.size() - rest.size() - texts.size();
    for (std::size_t n = 0; n <= bytes.size(); ++n) {
        write_file("cut.bin", bytes.substr(0, n));
        {
            file_in_bin in("cut.bin");
            file_out_bin out("copy.bin");
            copy(in, out);
        }
        const bool in_texts = n < before_texts + texts.size();
        const std::size_t same = in_texts ? std::min(n, before_texts) : n;
        EXPECT_EQ(read_file("copy.bin").substr(0, same), bytes.substr(0, same)) << "cut at " << n;
    }
    EXPECT_EQ(read_file("copy.bin"), bytes);
}

}  // namespace
