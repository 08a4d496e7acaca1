#include "foundation/platform.h"

#include <cstdio>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "foundation/string_3.h"

extern char** environ;

const char platform_separator = '/';

bool platform_is_separator(char c) { return c == '/'; }

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

// Cuts a command line into words at blanks outside double quotes, which go.
void split_words(const char* command, string_list_3& words) {
    bool quoted = false;
    bool in_word = false;
    for (const char* c = command; *c != 0; ++c) {
        if (*c == '"') quoted = !quoted;
        if (*c == ' ' && !quoted) {
            in_word = false;
            continue;
        }
        if (!in_word) words.add();
        in_word = true;
        if (*c != '"') words[words.last()].append(*c);
    }
}

}  // namespace

bool platform_run_command(const char* command, int& status) {
    string_list_3 words;
    split_words(command, words);
    if (words.n == 0) return false;
    list_0_3<char*> arguments;
    for (string_3& word : words) arguments.add(word.data);
    arguments.add(nullptr);
    pid_t child = 0;
    if (posix_spawnp(&child, arguments[0], nullptr, nullptr, arguments.p, environ) != 0) {
        return false;
    }
    int wait_status = 0;
    if (waitpid(child, &wait_status, 0) != child) return false;
    status = WIFEXITED(wait_status) ? WEXITSTATUS(wait_status) : -1;
    return true;
}
