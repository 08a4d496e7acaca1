#pragma once

#include <cstddef>
#include <cstdint>

#include "foundation/ctr_3.h"
#include "textin/file_io.h"
#include "textin/in_tag_3.h"

/// A binary file, read value by value in the processor's byte order. Beyond the end of the file
/// everything reads as 0. Lists read themselves from it: list.read_binary(file).
class file_in_bin : public file_io, public in_tag_3 {
public:
    /// Opens the file. If it can't, fails as file_in does.
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
    /// Reads what precedes a list's elements, their count and the first index, and prepares
    /// the list: it is emptied, and takes over the index if it has one. Returns the count, at least
    /// 0. Fails with " Invalid list in" and the path if no int holds the list's last index, or if
    /// the file, where its length can be had, lacks more than a MiB of the elements.
    template <typename List>
    int read_list_head(List& list) {
        const int count = read_int();
        const int base = read_int();
        list.clear();
        if (count < 1) return 0;
        using element = typename List::value_type;
        if constexpr (is_plain_element<element>) {
            check_size(std::int64_t{count} * static_cast<std::int64_t>(sizeof(element)));
        }
        if constexpr (List::has_base) {
            check_last_index(count, base);
            list.set_base(base);
        }
        static_cast<void>(base);
        return count;
    }
    /// Reads a text and its NUL. One that the file cuts off ends there.
    void read_text(string_3& out);
    /// Fills `size` bytes; those beyond the end of the file keep their values.
    void read_bytes(void* to, std::size_t size);

    /// Reads a list of texts: count, first index, then each text with its NUL.
    template <typename List>
    void read_strings(List& list) {
        for (int count = read_list_head(list); count > 0 && !at_eof(); --count) {
            read_text(list.add());
        }
    }

private:
    void check_last_index(int count, int base) const;
    void check_size(std::int64_t size);
    [[noreturn]] void refuse_list() const;

    list_0_3<char> pushed_back_;
};
