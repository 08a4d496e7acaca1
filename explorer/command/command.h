#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "command/errors.h"
#include "command/output.h"

namespace CLI {
class App;
}

namespace lomar {

/// A subcommand of lomar. It lives in a source of its own, command/NAME_command.cpp, which defines
///
///     std::unique_ptr<command> make_NAME_command();
///
/// and its name has a place in the list of explorer/CMakeLists.txt, whose order --help has.
/// The options -o, --format and --help are the frame's. So is the rule that an argument such as
/// `-1/4` or `-P 2ybc` is no option.
class command {
public:
    virtual ~command() = default;

    virtual std::string_view name() const = 0;
    /// One line for --help.
    virtual std::string_view summary() const = 0;
    /// The formats of its answer, the default first.
    virtual std::vector<std::string_view> formats() const = 0;
    /// Adds its options and positional arguments, which stand in for members of the object.
    virtual void declare(CLI::App& app) = 0;
    /// Writes the answer. What it throws becomes the one line on standard error and the status:
    /// errors.h.
    virtual void run(output& out) = 0;
};

/// All subcommands, in the order of --help.
std::vector<std::unique_ptr<command>> make_commands();

}  // namespace lomar
