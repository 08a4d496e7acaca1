// Stands between the tool and the system in lomar6_faulty, and lets calls fail: the environment
// variable LOMAR6_FAULT names a kind, a number and a mode, such as "malloc 12 once" or
// "write 3 always". The twelfth request for memory fails, or the third write and all after it.
// Without the variable nothing fails. Standard error gets the number of calls of each kind.

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

enum kind { memory, opening, reading, writing, closing, size_query, directory_query, n_kinds };
constexpr const char* names[n_kinds] = {"malloc", "open", "read", "write", "close", "stat", "cwd"};

int counts[n_kinds];
int fault_kind = n_kinds;
int fault_number = 0;
bool always = false;
bool armed = false;  // what the libraries do before main is left alone

bool fails(kind k, int error) {
    if (!armed) return false;
    const int n = ++counts[k];
    if (k != fault_kind || (always ? n < fault_number : n != fault_number)) return false;
    errno = error;
    return true;
}

void arm() {
    if (const char* fault = std::getenv("LOMAR6_FAULT")) {
        char name[16];
        char mode[16];
        if (std::sscanf(fault, "%15s %d %15s", name, &fault_number, mode) != 3) std::_Exit(2);
        for (int k = 0; k < n_kinds; ++k) {
            if (std::strcmp(name, names[k]) == 0) fault_kind = k;
        }
        always = std::strcmp(mode, "always") == 0;
    }
    armed = true;
}

void report() {
    armed = false;
    for (int k = 0; k < n_kinds; ++k) dprintf(STDERR_FILENO, "%s %d\n", names[k], counts[k]);
}

// Files that the C library buffers and whose reads, writes and closing may fail.

int& handle_of(void* cookie) { return *static_cast<int*>(cookie); }

ssize_t read_some(void* cookie, char* to, std::size_t size) {
    return fails(reading, EIO) ? -1 : read(handle_of(cookie), to, size);
}

ssize_t write_some(void* cookie, const char* from, std::size_t size) {
    if (fails(writing, ENOSPC)) return 0;
    const ssize_t written = write(handle_of(cookie), from, size);
    return written < 0 ? 0 : written;
}

int seek_to(void* cookie, off64_t* place, int origin) {
    *place = lseek(handle_of(cookie), *place, origin);
    return *place < 0 ? -1 : 0;
}

int close_file(void* cookie) {
    const int handle = handle_of(cookie);
    std::free(cookie);
    if (handle < 0) return 0;  // it wasn't opened
    const bool failed = fails(closing, EIO);
    return close(handle) != 0 || failed ? -1 : 0;
}

}  // namespace

extern "C" {

void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t n, std::size_t size);
int __real_stat(const char* path, struct stat* status);
char* __real_getcwd(char* buffer, std::size_t size);
int __real_main(int argc, char** argv);

void* __wrap_malloc(std::size_t size) {
    return fails(memory, ENOMEM) ? nullptr : __real_malloc(size);
}

void* __wrap_calloc(std::size_t n, std::size_t size) {
    return fails(memory, ENOMEM) ? nullptr : __real_calloc(n, size);
}

std::FILE* __wrap_fopen(const char* path, const char* mode) {
    if (fails(opening, EMFILE)) return nullptr;
    int flags = std::strchr(mode, '+') != nullptr ? O_RDWR : *mode == 'r' ? O_RDONLY : O_WRONLY;
    if (*mode == 'w') flags |= O_CREAT | O_TRUNC;
    if (*mode == 'a') flags |= O_CREAT | O_APPEND;
    // As the C library does: memory comes first, so that a file isn't emptied for nothing.
    int* const handle = static_cast<int*>(__real_malloc(sizeof(int)));
    std::FILE* const file = fopencookie(handle, mode, {read_some, write_some, seek_to, close_file});
    if (file == nullptr) {
        std::free(handle);
        return nullptr;
    }
    *handle = open(path, flags, 0666);
    if (*handle >= 0) return file;
    const int error = errno;
    std::fclose(file);
    errno = error;
    return nullptr;
}

int __wrap_stat(const char* path, struct stat* status) {
    return fails(size_query, EACCES) ? -1 : __real_stat(path, status);
}

char* __wrap_getcwd(char* buffer, std::size_t size) {
    return fails(directory_query, ENOENT) ? nullptr : __real_getcwd(buffer, size);
}

int __wrap_main(int argc, char** argv) {
    std::atexit(report);
    arm();
    return __real_main(argc, argv);
}

}  // extern "C"
