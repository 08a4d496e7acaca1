#pragma once

#include "textout/stream_out.h"

/// The current console stream: the last one pushed, or standard output.
stream_out& console_stream();

/// Puts a stream in the place of the console until it is popped. It must live that long.
void push_console_stream(stream_out& stream);
void pop_console_stream();

/// Writes result lines that begin with their line end.
class console_line_3 {
public:
    explicit console_line_3(stream_out& stream) : stream_(&stream) {}

    /// Starts a line with `text`: writes " \n" in front of it.
    console_line_3& operator<<(const char* text);
    /// Starts a line and leaves it empty.
    void end_line();

private:
    stream_out* stream_;
};

/// The line writer over the console stream that was current at its first use.
console_line_3& console_line();
