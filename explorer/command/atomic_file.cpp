#include "command/atomic_file.h"

#include <cerrno>
#include <filesystem>

#include "command/errors.h"
#include "command/system.h"

namespace lomar {

namespace fs = std::filesystem;

namespace {

// Where a link leads, however many there are between; the path itself if it is none.
fs::path target_of(fs::path path) {
    std::error_code error;
    for (int i = 0; i < 40 && fs::is_symlink(path, error); ++i) {
        path = path.parent_path() / fs::read_symlink(path, error);
        if (error) break;
    }
    return path;
}

}  // namespace

atomic_file::atomic_file(const std::string& path) : shown(path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (fs::is_directory(status)) fail("it is a directory");
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        file = system::open_for_writing(path, error);
        if (file < 0) fail(error.message());
        return;
    }
    place = target_of(path).string();
    if (fs::exists(status) && !system::is_writable(place)) fail("it is read-only");
    open_temporary();
    if (fs::exists(status)) fs::permissions(temporary, status.permissions(), error);
}

void atomic_file::open_temporary() {
    const std::string stem = ".lomar-" + std::to_string(system::process_number()) + "-";
    std::error_code error;
    for (int i = 0; i < 1000; ++i) {
        temporary = (fs::path(place).parent_path() / (stem + std::to_string(i) + ".tmp")).string();
        file = system::create_temporary(temporary, error);
        if (error != std::errc::file_exists) break;
    }
    if (file < 0) fail(error.message());
}

atomic_file::~atomic_file() {
    if (file < 0) return;
    system::close(file);
    if (temporary.empty()) return;
    system::remove(temporary);
    system::forget_temporary();
}

void atomic_file::write(std::string_view text) {
    const std::error_code error = system::write(file, text);
    if (error && temporary.empty() && system::is_closed_pipe(error)) throw closed_pipe();
    if (error) fail(error.message());
}

void atomic_file::keep() {
    std::error_code error = system::close(file);
    file = -1;
    if (!temporary.empty()) {
        if (!error) error = system::replace(temporary, place);
        if (error) system::remove(temporary);
        system::forget_temporary();
    }
    if (error) fail(error.message());
}

void atomic_file::fail(const std::string& reason) const {
    throw input_error("can't write '" + shown + "': " + reason);
}

void write_file(const std::string& path, std::string_view text) {
    atomic_file file(path);
    file.write(text);
    file.keep();
}

}  // namespace lomar
