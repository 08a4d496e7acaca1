#include "textout/file_out_no_buffer_3.h"

file_out_no_buffer_3::file_out_no_buffer_3() {
    set_name("");
    set_mode("w+b");
}

file_out_no_buffer_3::file_out_no_buffer_3(std::FILE* attached) {
    file = attached;
    io_flags = attached_flag;
}

stream_out& file_out_no_buffer_3::operator<<(char c) {
    if (file != nullptr) std::fputc(c, file);
    return *this;
}

stream_out& file_out_no_buffer_3::operator<<(const char* text) {
    if (file != nullptr) std::fputs(text, file);
    return *this;
}

void file_out_no_buffer_3::reopen() {
    close();
    file_io::open(open_or_throw);
}
