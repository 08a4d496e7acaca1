#include "command/output.h"

#include <cstdlib>

#include "command/errors.h"
#include "command/system.h"

namespace lomar {

namespace {

constexpr std::size_t buffer_size = 1 << 16;

bool colours_wanted() {
    const char* no_color = std::getenv("NO_COLOR");
    return (no_color == nullptr || *no_color == '\0') &&
           system::is_terminal(system::standard_output);
}

}  // namespace

output::output(const std::string& path, std::string_view format) : format_(format) {
    if (path.empty() || path == "-") {
        colour_ = colours_wanted();
    } else {
        file.emplace(path);
    }
}

void output::write(std::string_view text) {
    buffer += text;
    if (buffer.size() >= buffer_size) flush();
}

void output::finish() {
    flush();
    if (file) file->keep();
}

void output::flush() {
    if (file) {
        file->write(buffer);
    } else {
        const std::error_code error = system::write(system::standard_output, buffer);
        if (error && system::is_closed_pipe(error)) throw closed_pipe();
        if (error) throw input_error("can't write standard output: " + error.message());
    }
    buffer.clear();
}

}  // namespace lomar
