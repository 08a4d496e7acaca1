#include "textout/console.h"

#include "foundation/console_text.h"
#include "textout/file_out_no_buffer_3.h"

namespace {

list_0_3<stream_out*>& pushed_streams() {
    static list_0_3<stream_out*> streams;
    return streams;
}

}  // namespace

stream_out& console_stream() {
    const auto& pushed = pushed_streams();
    if (pushed.n != 0) return *pushed[pushed.last()];
    static file_out_no_buffer_3 standard_output(stdout);
    return standard_output;
}

void push_console_stream(stream_out& stream) { pushed_streams().add(&stream); }

void pop_console_stream() {
    if (pushed_streams().n != 0) --pushed_streams().n;
}

void write_console_text(const char* text) { console_stream() << text; }

console_line_3& console_line_3::operator<<(const char* text) {
    *stream_ << ' ' << '\n' << text;
    return *this;
}

void console_line_3::end_line() { *stream_ << ' ' << '\n'; }

console_line_3& console_line() {
    static console_line_3 line(console_stream());
    return line;
}
