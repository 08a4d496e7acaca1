#include "textin/file_io.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <new>

#include "foundation/console_text.h"
#include "foundation/except_3.h"
#include "foundation/platform.h"

int file_io::open(const char* new_name, int flags) {
    set_name(new_name);
    return open(flags);
}

int file_io::open(int flags) {
    for (char* c = name.data; *c != 0; ++c) {
        if (platform_is_separator(*c)) *c = platform_separator;
    }
    string_out path(120);
    path << name;
    file = std::fopen(path.text(), mode.data);
    if (file != nullptr) return 1;
    if (errno == ENOMEM) throw std::bad_alloc();
    if ((flags & throw_if_not_opened) != 0) {
        (error_builder_3() << "Cannot open file" << path.text()).fail();
    }
    if ((flags & tell_if_not_opened) != 0) {
        string_out line;
        line << "Cannot open file " << path.text() << "\n";
        write_console_text(line.text());
    }
    return 0;
}

void file_io::close() {
    if (file != nullptr && (io_flags & attached_flag) == 0) std::fclose(file);
    file = nullptr;
}

void file_io::set_name(const char* new_name) {
    name = new_name;
    name.unquote();
    string_3 part;
    dir_part(name.data, part);
    if (platform_is_absolute(name.data)) {
        dir.take(part);
        if (!platform_is_separator(*dir.last())) dir.append(platform_separator);
        return;
    }
    current_dir_slash(dir);
    dir.append(part.data);
}

int file_exists(const char* name) {
    string_3 plain(name);
    plain.unquote();
    if (std::FILE* file = std::fopen(plain.data, "r+b")) {
        std::fclose(file);
        return 1;
    }
    if (errno == ENOMEM) throw std::bad_alloc();
    if (errno == EMFILE || errno == ENFILE) {
        (error_builder_3() << "Cannot open file" << plain).fail();
    }
    return 0;
}

int remove_file(const char* name) {
    if (!file_exists(name)) return 0;
    string_3 plain(name);
    plain.unquote();
    platform_remove_file(plain.data);
    return 1;
}

int file_size(const char* name) {
    constexpr std::int64_t most = 2147483647;
    return static_cast<int>(std::clamp<std::int64_t>(platform_file_size(name), 0, most));
}

void current_dir(string_3& out) {
    static char buffer[1000];
    if (!platform_current_dir(buffer, sizeof buffer)) fail_with("getcwd error");
    out = buffer;
}

void current_dir_slash(string_3& out) {
    current_dir(out);
    if (out.is_empty() || !platform_is_separator(*out.last())) out.append(platform_separator);
}

int dir_start(const char* path) {
    if (*path == 0) return not_found;
    int start = 0;
    for (int i = 0; path[i] != 0; ++i) {
        if (platform_ends_directory(path[i])) start = i + 1;
    }
    return start;
}

void dir_part(const char* path, string_3& out) {
    const int start = dir_start(path);
    out.assign_range(path, start == not_found ? 0 : start);
}
