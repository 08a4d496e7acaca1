#include "command/system.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace lomar::system {

namespace {

std::error_code last_error() { return {errno, std::generic_category()}; }

int opened(const std::string& path, int flags, std::error_code& error) {
    const int file = ::open(path.c_str(), flags | O_CLOEXEC, 0666);
    error = file < 0 ? last_error() : std::error_code();
    return file;
}

// A handler of signals can reach nothing but what is static.
std::array<char, 4096> interrupted_path;

void on_interrupt(int signal) {
    if (interrupted_path[0] != '\0') ::unlink(interrupted_path.data());
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

}  // namespace

void prepare_streams() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    for (int stream = 0; stream <= 2; ++stream) {
        if (::fcntl(stream, F_GETFD) != -1 || errno != EBADF) continue;
        // The lowest free number is this one. Its use fails, as that of a closed stream does.
        if (::open("/dev/null", stream == 0 ? O_WRONLY : O_RDONLY) != stream) return;
    }
}

bool is_terminal(int stream) {
    if (::isatty(stream) == 0) return false;
    const char* kind = std::getenv("TERM");
    return kind != nullptr && std::strcmp(kind, "dumb") != 0;
}

std::error_code write(int file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(file, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return last_error();
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
}

std::error_code read(int file, std::string& text, std::size_t most) {
    std::array<char, 65536> buffer;
    for (;;) {
        const ssize_t n = ::read(file, buffer.data(), buffer.size());
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return last_error();
        if (n == 0) return {};
        text.append(buffer.data(), static_cast<std::size_t>(n));
        if (text.size() > most) return std::make_error_code(std::errc::file_too_large);
    }
}

bool is_closed_pipe(std::error_code error) { return error == std::errc::broken_pipe; }

int open_for_reading(const std::string& path, std::error_code& error) {
    return opened(path, O_RDONLY, error);
}

int open_for_writing(const std::string& path, std::error_code& error) {
    return opened(path, O_WRONLY, error);
}

int create_temporary(const std::string& path, std::error_code& error) {
    if (path.size() >= interrupted_path.size()) {
        error = std::make_error_code(std::errc::filename_too_long);
        return -1;
    }
    sigset_t interrupts;
    sigset_t before;
    ::sigemptyset(&interrupts);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) ::sigaddset(&interrupts, signal);
    ::sigprocmask(SIG_BLOCK, &interrupts, &before);
    const int file = opened(path, O_WRONLY | O_CREAT | O_EXCL, error);
    if (file >= 0) {
        for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
            // One that the caller has had ignored stays so, as nohup wants it.
            if (std::signal(signal, on_interrupt) == SIG_IGN) std::signal(signal, SIG_IGN);
        }
        std::memcpy(interrupted_path.data(), path.c_str(), path.size() + 1);
    }
    ::sigprocmask(SIG_SETMASK, &before, nullptr);
    return file;
}

std::error_code close(int file) { return ::close(file) == 0 ? std::error_code() : last_error(); }

std::error_code replace(const std::string& from, const std::string& to) {
    return std::rename(from.c_str(), to.c_str()) == 0 ? std::error_code() : last_error();
}

void remove(const std::string& path) { ::unlink(path.c_str()); }

bool is_writable(const std::string& path) { return ::access(path.c_str(), W_OK) == 0; }

long process_number() { return ::getpid(); }

void forget_temporary() { interrupted_path[0] = '\0'; }

}  // namespace lomar::system
