#include "textin/file_in.h"

#include "foundation/except_3.h"

file_in::file_in(const char* path, int flags) : load_flags(flags) {
    set_name(path);
    set_mode("r+b");
    text = contents.text();
    if ((load_flags & open_now) != 0) file_in::open(open_or_throw);
}

int file_in::open(const char* new_name, int flags) {
    set_name(new_name);
    return file_in::open(flags);
}

int file_in::open(int flags) {
    if (!file_io::open(flags)) return 0;
    if ((load_flags & load_text) != 0) load();
    return 1;
}

void file_in::close() {
    file_io::close();
    contents.reset();
    set_text(contents.text());
    if (mode.is_empty()) set_mode("r");
}

void file_in::load() {
    constexpr int spare = 1000;  // room after the text
    const int size = file_size(name.data);
    if (size > 2147483647 - spare - 1) {
        file_io::close();
        (error_builder_3() << "Cannot open file" << name).fail();
    }
    contents.set_length(size + spare);
    const auto wanted = static_cast<std::size_t>(size);
    const int length = static_cast<int>(std::fread(contents.p, 1, wanted, file));
    const bool failed = std::ferror(file) != 0;
    file_io::close();
    if (failed) (error_builder_3() << "Cannot read file" << name).fail();
    contents.set_length(length);
    set_text(contents.text());
    blank_for_reading(contents.p, length, load_flags);
}

namespace {

void blank_each(char c, char* begin, char* end) {
    for (char* p = begin; p != end; *p++ = ' ') {
        p = static_cast<char*>(std::memchr(p, c, static_cast<std::size_t>(end - p)));
        if (p == nullptr) return;
    }
}

}  // namespace

void blank_for_reading(char* text, int length, int load_flags) {
    blank_each(0, text, text + length);
    if ((load_flags & file_in::keep_cr) == 0) blank_each('\r', text, text + length);
    if ((load_flags & file_in::drop_comments) != 0) blank_comments(text);
}

namespace {

char* blank_line_comment(char* c) {
    while (*c != 0 && *c != '\n') *c++ = ' ';
    return c;
}

char* blank_block_comment(char* c) {
    int depth = 0;
    do {
        if (c[0] == 0 || c[1] == 0) fail_with("Unclosed comment block");
        const bool opens = c[0] == '/' && c[1] == '*';
        const bool closes = c[0] == '*' && c[1] == '/';
        *c++ = ' ';
        if (opens || closes) *c++ = ' ';
        depth += opens - closes;
    } while (depth > 0);
    return c;
}

}  // namespace

void blank_comments(char* text) {
    for (char* c = text + std::strcspn(text, "'/"); *c != 0; c += std::strcspn(c, "'/")) {
        if (*c == '\'') {
            c = blank_line_comment(c);
        } else if (c[1] == '*') {
            c = blank_block_comment(c);
        } else {
            ++c;
        }
    }
}
