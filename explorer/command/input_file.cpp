#include "command/input_file.h"

#include "command/errors.h"
#include "command/system.h"

namespace lomar {

std::string read_input(const std::string& path) {
    const bool standard = path == "-";
    std::string text;
    std::error_code error;
    const int file = standard ? system::standard_input : system::open_for_reading(path, error);
    if (!error) error = system::read(file, text);
    if (!standard && file >= 0) system::close(file);
    if (error) {
        const std::string place = standard ? "standard input" : "'" + path + "'";
        throw input_error("can't read " + place + ": " + error.message());
    }
    return text;
}

}  // namespace lomar
