#include "command/system.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <io.h>
#include <process.h>
#include <sys/stat.h>

// After the others, since it defines a great many macros.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace lomar::system {

namespace {

std::error_code last_error() { return {errno, std::generic_category()}; }

int opened(const std::string& path, int flags, std::error_code& error) {
    const int file = ::_open(path.c_str(), flags | _O_BINARY, _S_IREAD | _S_IWRITE);
    error = file < 0 ? last_error() : std::error_code();
    return file;
}

std::array<char, 4096> interrupted_path;

BOOL WINAPI on_interrupt(DWORD) {
    if (interrupted_path[0] != '\0') ::_unlink(interrupted_path.data());
    return FALSE;
}

}  // namespace

void prepare_streams() {
    for (int stream = 0; stream <= 2; ++stream) ::_setmode(stream, _O_BINARY);
}

bool is_terminal(int stream) {
    const HANDLE window = ::GetStdHandle(stream == standard_output  ? STD_OUTPUT_HANDLE
                                         : stream == standard_error ? STD_ERROR_HANDLE
                                                                    : STD_INPUT_HANDLE);
    DWORD mode = 0;
    if (!::GetConsoleMode(window, &mode)) return false;
    constexpr DWORD colours = 4;  // ENABLE_VIRTUAL_TERMINAL_PROCESSING
    return ::SetConsoleMode(window, mode | colours) != 0;
}

std::error_code write(int file, std::string_view text) {
    while (!text.empty()) {
        const auto size = static_cast<unsigned>(text.size() < 65536 ? text.size() : 65536);
        const int written = ::_write(file, text.data(), size);
        if (written < 0) return last_error();
        if (written == 0) return std::make_error_code(std::errc::no_space_on_device);
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
}

std::error_code read(int file, std::string& text, std::size_t most) {
    std::array<char, 65536> buffer;
    for (;;) {
        const int n = ::_read(file, buffer.data(), static_cast<unsigned>(buffer.size()));
        if (n < 0) return last_error();
        if (n == 0) return {};
        text.append(buffer.data(), static_cast<std::size_t>(n));
        if (text.size() > most) return std::make_error_code(std::errc::file_too_large);
    }
}

// A pipe whose reader has gone fails with EINVAL here.
bool is_closed_pipe(std::error_code error) {
    return error == std::errc::broken_pipe || error == std::errc::invalid_argument;
}

int open_for_reading(const std::string& path, std::error_code& error) {
    return opened(path, _O_RDONLY, error);
}

int open_for_writing(const std::string& path, std::error_code& error) {
    return opened(path, _O_WRONLY, error);
}

int create_temporary(const std::string& path, std::error_code& error) {
    if (path.size() >= interrupted_path.size()) {
        error = std::make_error_code(std::errc::filename_too_long);
        return -1;
    }
    const int file = opened(path, _O_WRONLY | _O_CREAT | _O_EXCL, error);
    if (file >= 0) {
        ::SetConsoleCtrlHandler(on_interrupt, TRUE);
        std::memcpy(interrupted_path.data(), path.c_str(), path.size() + 1);
    }
    return file;
}

std::error_code close(int file) { return ::_close(file) == 0 ? std::error_code() : last_error(); }

std::error_code replace(const std::string& from, const std::string& to) {
    if (::MoveFileExA(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING)) return {};
    return {static_cast<int>(::GetLastError()), std::system_category()};
}

void remove(const std::string& path) { ::_unlink(path.c_str()); }

bool is_writable(const std::string& path) { return ::_access(path.c_str(), 2) == 0; }

long process_number() { return ::_getpid(); }

void forget_temporary() { interrupted_path[0] = '\0'; }

}  // namespace lomar::system
