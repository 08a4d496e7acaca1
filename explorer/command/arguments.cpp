#include "command/arguments.h"

#include <CLI/App.hpp>
#include <optional>
#include <string_view>

#include "command/errors.h"

namespace lomar {

namespace {

constexpr std::string_view lattice_letters = "pabcifr";

bool is_capital(char c) { return c >= 'A' && c <= 'Z'; }
bool is_digit(char c) { return c >= '0' && c <= '9'; }

const CLI::Option& option_of(const CLI::App& app, const std::string& name) {
    const CLI::Option* option = app.get_option_no_throw(name);
    if (option == nullptr) throw usage_error("no option '" + name + "'");
    return *option;
}

// Cuts `--name=value` and `-nvalue` in two.
std::pair<std::string, std::optional<std::string>> cut(const std::string& argument) {
    const bool is_long = argument.starts_with("--");
    const std::size_t end = is_long ? argument.find('=') : 2;
    if (end >= argument.size()) return {argument, std::nullopt};
    return {argument.substr(0, end), argument.substr(end + (is_long ? 1 : 0))};
}

}  // namespace

bool is_value(const std::string& argument) {
    if (!argument.starts_with('-') || argument.size() == 1) return true;
    const char c = argument[1];
    return is_digit(c) || c == '.' || is_capital(c) ||
           lattice_letters.find(c) != std::string_view::npos;
}

std::vector<std::string> options_first(const CLI::App& app,
                                       const std::vector<std::string>& arguments) {
    std::vector<std::string> options;
    std::vector<std::string> values;
    for (auto next = arguments.begin(); next != arguments.end();) {
        const std::string& argument = *next++;
        if (argument == "--") {
            values.insert(values.end(), next, arguments.end());
            break;
        }
        if (is_value(argument)) {
            values.push_back(argument);
            continue;
        }
        const auto [name, value] = cut(argument);
        int missing = option_of(app, name).get_items_expected_min();
        if (value && missing == 0) throw usage_error(name + " takes no value");
        options.push_back(name);
        if (value) options.push_back(*value);
        for (missing -= value ? 1 : 0; missing > 0; --missing) {
            if (next == arguments.end()) throw usage_error(name + " lacks a value");
            options.push_back(*next++);
        }
    }
    options.push_back("--");
    options.insert(options.end(), values.begin(), values.end());
    return options;
}

}  // namespace lomar
