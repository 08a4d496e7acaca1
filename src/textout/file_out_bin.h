#pragma once

#include "textin/file_io.h"
#include "textout/stream_out.h"

/// Writes what file_in_bin reads: values as they are in memory, in the processor's byte order.
/// Before the elements of a list go two ints, its length and its first index. The NUL of a text is
/// written, too.
class file_out_bin : public file_io, public stream_out {
public:
    /// Creates or empties the file. If it can't, fails as file_out does.
    explicit file_out_bin(const char* path);

    /// Writes a list of characters as one whose indices begin with 0.
    virtual void write_bytes(const vector_1_3& bytes);

    int is_binary() const override { return 1; }
    std::FILE* handle() override { return file; }
    void write_strings(const vector_string_3& list) override;
    void write_vector_8(const vector_8_3& list) override { write_record(list); }
    void write_vector_1(const vector_1_3& list) override { write_record(list); }
    void write_vector_4(const vector_4_3& list) override { write_record(list); }
    void write_vector_4f(const vector_4f_3& list) override { write_record(list); }
    stream_out& operator<<(std::uint64_t value) override { return write_value(value); }
    stream_out& operator<<(int value) override { return write_value(value); }
    stream_out& operator<<(float value) override { return write_value(value); }
    stream_out& operator<<(double value) override { return write_value(value); }
    stream_out& operator<<(char_range_3 range) override;
    stream_out& operator<<(const string_3& text) override { return *this << text.data; }
    stream_out& operator<<(char c) override;
    stream_out& operator<<(const char* text) override;

    using file_io::directory;
    using file_io::file_name;

private:
    void write_raw(const void* from, std::size_t size);

    template <typename Value>
    stream_out& write_value(Value value) {
        write_raw(&value, sizeof value);
        return *this;
    }

    template <typename List>
    void write_head(const List& list) {
        write_value(list.n);
        write_value(list.first());
    }

    template <typename List>
    void write_record(const List& list) {
        write_head(list);
        if (list.n != 0) {
            write_raw(list.block(), static_cast<std::size_t>(list.n) * sizeof(*list.block()));
        }
    }
};
