#include "foundation/platform.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "foundation/string_3.h"

extern char** environ;  // NOLINT(readability-redundant-declaration): not in every unistd.h

const char platform_separator = '/';

const char* const platform_program_prefix = "./";

bool platform_is_separator(char c) { return c == '/'; }

bool platform_can_name_file(const char* name) { return std::strchr(name, '/') == nullptr; }

bool platform_ends_directory(char c) { return c == '/'; }

bool platform_is_absolute(const char* path) { return path[0] == '/'; }

bool platform_current_dir(char* buffer, int size) {
    return getcwd(buffer, static_cast<std::size_t>(size)) != nullptr;
}

bool platform_set_current_dir(const char* path) { return chdir(path) == 0; }

std::int64_t platform_file_size(const char* path) {
    struct stat status;
    return stat(path, &status) == 0 ? std::int64_t{status.st_size} : -1;
}

bool platform_remove_file(const char* path) { return unlink(path) == 0; }

bool platform_make_empty_file(const char* path) {
    const int file = open(path, O_WRONLY | O_CREAT | O_TRUNC, 0666);
    return file >= 0 && close(file) == 0;
}

void platform_prepare_output() {}

bool platform_physical_memory(std::uint64_t& kilobytes) {
    const long pages = sysconf(_SC_PHYS_PAGES);
    const long page_size = sysconf(_SC_PAGESIZE);
    if (pages < 1 || page_size < 1) return false;
    kilobytes = static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(page_size) / 1024;
    return true;
}

bool platform_working_set(std::uint64_t& bytes) {
    std::FILE* file = std::fopen("/proc/self/statm", "r");
    if (file == nullptr) return false;
    unsigned long long resident = 0;
    const int fields = std::fscanf(file, "%*s %llu", &resident);
    std::fclose(file);
    bytes = resident * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
    return fields == 1;
}

namespace {

void wait_for(pid_t child) {
    while (waitpid(child, nullptr, 0) == -1 && errno == EINTR) {}
}

}  // namespace

bool platform_run_program(const char* const* arguments) {
    // The call doesn't write into the texts.
    auto* const texts = const_cast<char* const*>(arguments);
    pid_t child = 0;
    if (posix_spawnp(&child, texts[0], nullptr, nullptr, texts, environ) != 0) return false;
    wait_for(child);
    return true;
}

// A command that isn't waited for is started by a shell that ends at once, so that the system
// collects it and not this process.
bool platform_start(const char* command, bool wait, bool) {
    string_3 shell("/bin/sh");
    string_3 option("-c");
    string_3 line(command);
    if (!wait) {
        line.prepend("(\n");
        line.append("\n) &");
    }
    char* const arguments[] = {shell.data, option.data, line.data, nullptr};
    pid_t child = 0;
    if (posix_spawn(&child, shell.data, nullptr, nullptr, arguments, environ) != 0) return false;
    wait_for(child);
    return true;
}
