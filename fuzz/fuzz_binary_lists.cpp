#include "fuzzing.h"
#include "textin/file_in_bin.h"
#include "textout/file_out_bin.h"

namespace {

// Reads a list, writes it, and reads it back.
template <typename List>
void copy_list(file_in_bin& in, void (file_out_bin::*write)(const List&)) {
    List list;
    list.read_binary(in);
    {
        file_out_bin out("copy.bin");
        (out.*write)(list);
    }
    file_in_bin back("copy.bin");
    List copy;
    copy.read_binary(back);
    if (copy.n != list.n || (list.n > 0 && copy.first() != list.first())) __builtin_trap();
    if (!copy.equal(list) || back.at_eof() == 0) __builtin_trap();
}

void copy_texts(file_in_bin& in) {
    vector_string_3 texts;
    in.read_strings(texts);
    {
        file_out_bin out("copy.bin");
        out.write_strings(texts);
    }
    file_in_bin back("copy.bin");
    vector_string_3 copy;
    back.read_strings(copy);
    if (!copy.equal(texts)) __builtin_trap();
}

}  // namespace

// The first line says in what order the rest is read: a letter for each list or value.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string input(reinterpret_cast<const char*>(data), size);
    const std::string order = take_line(input).substr(0, 20);
    write_file("lists.bin", input);
    run_cleanly([&] {
        file_in_bin in("lists.bin");
        string_3 text;
        list_0_3<int> from_0;
        for (const char c : order) {
            if (c == '8') copy_list<vector_8_3>(in, &file_out_bin::write_vector_8);
            if (c == '4') copy_list<vector_4_3>(in, &file_out_bin::write_vector_4);
            if (c == '1') copy_list<vector_1_3>(in, &file_out_bin::write_vector_1);
            if (c == '0') from_0.read_binary(in);
            if (c == 's') copy_texts(in);
            if (c == 't') in.read_text(text);
            if (c == 'i') in.read_int();
            if (c == 'd') in.read_double();
            if (c == 'e' && in.at_eof() != 0 && in.get_byte() != EOF) __builtin_trap();
        }
    });
    return 0;
}
