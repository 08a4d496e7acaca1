#include <CLI/App.hpp>

#include "command/command.h"
#include "formats/setting_list.h"

namespace lomar {

namespace {

class list_command : public command {
public:
    std::string_view name() const override { return "list"; }
    std::string_view summary() const override {
        return "the settings known, narrowed by words: number, system, lattice";
    }
    std::vector<std::string_view> formats() const override { return {"text", "json", "csv"}; }

    void declare(CLI::App& app) override {
        app.add_option(
            "WORDS", words,
            "what to keep: a number or range, a crystal system, a lattice letter, a point "
            "group, axes, part of a symbol");
    }

    void run(output& out) override {
        const std::vector<const setting*> rows = settings_for(words);
        out.write(out.format() == "json"  ? setting_json(rows)
                  : out.format() == "csv" ? setting_csv(rows)
                                          : setting_table(rows));
    }

private:
    std::vector<std::string> words;
};

}  // namespace

std::unique_ptr<command> make_list_command();
std::unique_ptr<command> make_list_command() { return std::make_unique<list_command>(); }

}  // namespace lomar
