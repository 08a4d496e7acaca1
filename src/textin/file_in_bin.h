#pragma once

#include <cstddef>

#include "foundation/ctr_3.h"
#include "textin/file_io.h"
#include "textin/in_tag_3.h"

/// A binary file, read value by value in the machine's byte order. What lies behind the end of
/// the file reads as 0. Lists read themselves from it: list.read_binary(file).
class file_in_bin : public file_io, public in_tag_3 {
public:
    /// Opens the file; fails with " Cannot open file" and the path.
    explicit file_in_bin(const char* path);

    /// Behind this the file reads as one that is at its end.
    void close() override;

    virtual int good() const { return 1; }
    virtual const char* stream_name() const { return name.data; }
    virtual int is_text() const { return 0; }
    virtual int tag() const { return tag_number(); }

    /// 1 if no byte is left.
    int at_eof();
    /// The next byte as 0 to 255, or EOF.
    int get_byte();
    int read_int();
    double read_double();
    /// Reads bytes up to a NUL, which is passed, or to the end of the file.
    void read_text(string_3& out);
    /// Fills `size` bytes; those behind the end of the file stay as they are.
    void read_bytes(void* to, std::size_t size);

    /// Reads a list of texts: count, first index, then each text with its NUL.
    template <typename List>
    void read_strings(List& list) {
        const int count = read_int();
        const int base = read_int();
        list.clear();
        if (count < 1) return;
        if constexpr (List::has_base) list.set_base(base);
        static_cast<void>(base);
        for (int i = 0; i < count && !at_eof(); ++i) read_text(list.add());
    }

private:
    list_0_3<char> pushed_back;
};
