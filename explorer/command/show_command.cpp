#include <CLI/App.hpp>

#include "command/command.h"
#include "group/settings.h"
#include "group/space_group.h"

namespace lomar {

namespace {

class show_command : public command {
public:
    std::string_view name() const override { return "show"; }
    std::string_view summary() const override { return "Everything about a group"; }
    std::vector<std::string_view> formats() const override { return {"text", "xyz"}; }

    void declare(CLI::App& app) override {
        app.add_option("SYMBOL", symbol, "The name of a group, such as P21/c")->required();
    }

    void run(output& out) override {
        const setting* row = find_setting(symbol);
        if (row == nullptr) throw input_error("'" + symbol + "' names no space group");
        const space_group group = group_of(*row);
        if (out.format() == "text") out.write(group.name + "\n\n");
        for (const symop& op : group.operators) out.write(xyz_text(op) + "\n");
    }

private:
    std::string symbol;
};

}  // namespace

std::unique_ptr<command> make_show_command();
std::unique_ptr<command> make_show_command() { return std::make_unique<show_command>(); }

}  // namespace lomar
