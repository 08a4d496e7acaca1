#include "command/input_file.h"

#include "command/errors.h"
#include "command/system.h"

namespace lomar {

namespace {

// Larger than any crystal's file: what goes on is a device, or a program that never ends.
constexpr std::size_t most_mebibytes = 256;

}  // namespace

std::string read_input(const std::string& path) {
    const bool standard = path == "-";
    std::string text;
    std::error_code error;
    const int file = standard ? system::standard_input : system::open_for_reading(path, error);
    if (!error) error = system::read(file, text, most_mebibytes << 20U);
    if (!standard && file >= 0) system::close(file);
    if (error) {
        const std::string place = standard ? "standard input" : "'" + path + "'";
        const bool is_endless = error == std::errc::file_too_large;
        throw input_error("can't read " + place + ": " +
                          (is_endless
                               ? "it has more than " + std::to_string(most_mebibytes) + " MiB"
                               : error.message()));
    }
    return text;
}

}  // namespace lomar
