#include "command/program.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <sstream>

#include "command/arguments.h"
#include "command/command.h"
#include "command/system.h"
#include "formats/text_layout.h"
#include "group/message.h"

namespace lomar {

namespace {

std::string overview(const std::vector<std::unique_ptr<command>>& commands) {
    std::string text =
        "lomar answers what a person asks about a space group.\n\n"
        "Usage: lomar COMMAND [ARGUMENTS]\n\n"
        "Commands:\n";
    for (const auto& each : commands) {
        std::string line = "  ";
        line += each->name();
        line.resize(15, ' ');
        text += line.append(each->summary()) + "\n";
    }
    return text +
           "\nOptions of every command:\n"
           "  -o FILE        write the answer to a file, whole or not at all\n"
           "  --format F     the form of the answer\n"
           "  -h, --help     what the command takes\n\n"
           "lomar --version prints the version.\n";
}

// Long lines of a help, whose explanations are in a column, go on in that column.
std::string folded(const std::string& help) {
    constexpr std::size_t column = 30;
    std::string text;
    std::istringstream lines(help);
    for (std::string line; std::getline(lines, line);) {
        if (line.size() <= text_width) {
            text += line + "\n";
            continue;
        }
        std::istringstream rest(line.substr(column));
        std::vector<std::string> words;
        for (std::string word; rest >> word;) words.push_back(word);
        text += wrapped(line.substr(0, column - 1), words, " ", column);
    }
    return text;
}

void print(std::string_view text) {
    output out("", "text");
    out.write(text);
    out.finish();
}

std::string names_of_formats(const command& which) {
    std::string names;
    for (const std::string_view name : which.formats())
        names.append(names.empty() ? "" : ", ").append(name);
    return names;
}

void check_format(const command& which, const std::string& asked) {
    const auto formats = which.formats();
    if (std::find(formats.begin(), formats.end(), asked) != formats.end()) return;
    throw usage_error(std::string(which.name()) + " has no format '" + asked + "'; it has " +
                      names_of_formats(which));
}

std::string too_many(const CLI::App& app) {
    std::vector<std::string> extras = app.remaining();
    std::erase(extras, "--");
    return "'" + (extras.empty() ? "" : extras.front()) +
           "' is one argument too many (a symbol with blanks belongs in quotes)";
}

// `--format: At Most 1 required but received 2`, in plain words.
std::string told_mismatch(const std::string& message) {
    const std::size_t twice = message.find(": At Most 1 ");
    if (twice != std::string::npos) return message.substr(0, twice) + " is given twice";
    const std::size_t few = message.find(": At least ");
    return few == std::string::npos ? message : message.substr(0, few) + " lacks a value";
}

// `Could not convert: --limits = 1,1,x`, in plain words.
std::string told_conversion(const std::string& message) {
    const std::size_t name = message.find("--");
    const std::size_t value = message.find(" = ");
    if (name == std::string::npos || value == std::string::npos) return message;
    return message.substr(name, value - name) + " can't be '" + message.substr(value + 3) + "'";
}

// False when help was asked for.
bool parse(CLI::App& app, const command& which, const std::vector<std::string>& arguments) {
    std::string fault;
    try {
        std::vector<std::string> ordered = options_first(app, arguments);
        std::reverse(ordered.begin(), ordered.end());  // as CLI11 wants them
        app.parse(std::move(ordered));
        return true;
    } catch (const CLI::CallForHelp&) {
        return false;
    } catch (const CLI::ExtrasError&) {
        fault = too_many(app);
    } catch (const CLI::ArgumentMismatch& error) {
        fault = told_mismatch(error.what());
    } catch (const CLI::ConversionError& error) {
        fault = told_conversion(error.what());
    } catch (const std::exception& error) {
        fault = error.what();
    }
    const std::string name(which.name());
    throw usage_error(name + ": " + fault + "; see lomar " + name + " --help");
}

void run_command(command& which, const std::vector<std::string>& arguments) {
    CLI::App app(std::string(which.summary()), "lomar " + std::string(which.name()));
    std::string path;
    std::string format(which.formats().front());
    which.declare(app);
    app.set_help_flag("-h,--help", "print this help and end");
    app.add_option("-o,--output", path, "the file to write; else standard output")
        ->type_name("FILE");
    app.add_option("--format", format, "one of: " + names_of_formats(which))->type_name("F");
    if (!parse(app, which, arguments)) return print(folded(app.help()));
    if (path.empty() && app.count("-o") > 0) throw usage_error("-o lacks the name of a file");
    check_format(which, format);
    output out(path, format);
    which.run(out);
    out.finish();
}

void dispatch(std::vector<std::string> arguments) {
    const auto commands = make_commands();
    if (arguments.empty()) throw usage_error("no command; see lomar --help");
    const std::string first = arguments[0];
    if (first == "--help" || first == "-h") return print(overview(commands));
    if (first == "--version") return print("lomar " LOMAR_VERSION "\n");
    arguments.erase(arguments.begin());
    for (const auto& each : commands) {
        if (each->name() == first) return run_command(*each, arguments);
    }
    throw usage_error("no command '" + first + "'; see lomar --help");
}

int report(const char* message, int status) {
    system::write(system::standard_error, "lomar: " + one_line(message) + "\n");
    return status;
}

}  // namespace

int run_program(std::vector<std::string> arguments) {
    try {
        dispatch(std::move(arguments));
        return 0;
    } catch (const closed_pipe&) {
        return 0;
    } catch (const usage_error& error) {
        return report(error.what(), 2);
    } catch (const std::bad_alloc&) {
        return report("out of memory", 1);
    } catch (const std::exception& error) {
        return report(error.what(), 1);
    }
}

}  // namespace lomar
