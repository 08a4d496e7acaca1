#pragma once

#include "textout/file_out_no_buffer_3.h"

/// The characters of a file that aren't written yet, and the held tail.
class file_out_buf_3 {
public:
    file_out_buf_3() { buffer.set_max_n(high_mark, false); }
    virtual ~file_out_buf_3() = default;

protected:
    vector_1_3 buffer;
    int high_mark = 1024;  ///< more characters than this don't stay unwritten
    int keep = 512;        ///< but so many do, for the operations that look back
};

/// A text file to be written. The latest characters, 512 or more of a long text, are held back, so
/// that they can still be looked at and taken back.
class file_out : public file_out_no_buffer_3, public file_out_buf_3 {
public:
    static constexpr int behind_white = 1;  ///< flag: white space at the end doesn't count

    /// Creates or empties the file, unless `open_now` is 0: then call open, after set_mode("a+b")
    /// to append. Fails with " Cannot open file" and the path if that can't be done.
    explicit file_out(const char* path, int open_now = 1);
    explicit file_out(const string_3& path) : file_out(path.data) {}
    ~file_out() override { file_out::close(); }

    /// Writes out what is held, then closes. A second call does nothing. Neither this nor any other
    /// operation reports that the system couldn't write something: that is left to finish(). The
    /// file breaks off there.
    void close() override;
    /// Closes the file; fails with " Cannot write file" and the path if it lacks anything that was
    /// written to it.
    void finish();
    /// Whether the system couldn't write something up to now.
    bool is_incomplete() const { return incomplete_; }
    /// Writes out what is held and flushes the handle.
    void flush() override;

    using file_out_no_buffer_3::operator<<;
    stream_out& operator<<(char_range_3 range) override;
    stream_out& operator<<(char c) override;
    stream_out& operator<<(const char* text) override;

    /// Takes back the last character; there must be one.
    void pop() override { --buffer.n; }
    /// Removes `text` and what follows it, if the held text ends in it; 1 if it did.
    int remove_tail(const char* text, int flags) override;
    /// Gives the last `count` characters in `out` and the place where they begin, or -1 if fewer
    /// are held.
    int read_tail(int count, string_3& out, int flags) override;
    /// Makes the number of held characters `count`.
    void set_count(int count) override { buffer.set_n(count); }
    char last() const override { return buffer.n < 1 ? '\0' : buffer[buffer.n - 1]; }
    char second_last() const override { return buffer.n < 2 ? '\0' : buffer[buffer.n - 2]; }

private:
    int tail_end(int flags) const;
    void append(const char* text, int length);
    void write_part();
    void write_all();
    void write_out(const char* text, int length);

    bool incomplete_ = false;  // the system couldn't write something
};
