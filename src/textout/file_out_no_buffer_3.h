#pragma once

#include "textin/file_io.h"
#include "textout/stream_out.h"

/// An output file whose characters go straight to the standard library's stream. The console is
/// one, too.
class file_out_no_buffer_3 : public file_io, public stream_out {
public:
    /// Opens nothing; the mode is "w+b".
    file_out_no_buffer_3();
    /// Over a handle from outside, which is never closed here.
    explicit file_out_no_buffer_3(std::FILE* attached);

    using stream_out::operator<<;
    stream_out& operator<<(char c) override;
    stream_out& operator<<(const char* text) override;
    /// Closes the file and opens it again, which empties it unless it is opened for appending.
    void reopen() override;
    const char* file_name() const override { return file_io::file_name(); }
    const char* directory() const override { return file_io::directory(); }
};
