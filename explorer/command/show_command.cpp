#include <CLI/App.hpp>

#include "command/command.h"
#include "formats/operator_files.h"
#include "formats/text_layout.h"
#include "group/names.h"

namespace lomar {

namespace {

std::string answer_of(const space_group& group, const output& out) {
    const std::string& format = out.format();
    if (format == "xyz") return xyz_lines(group);
    if (format == "cif") return cif_block(group);
    if (format == "shelx") return shelx_cards(group);
    if (format == "sg") return sg_file(group);
    if (format == "csv") return csv_operators(group);
    return bold(group.name, out.colour()) + "\n\n" + xyz_lines(group);
}

class show_command : public command {
public:
    std::string_view name() const override { return "show"; }
    std::string_view summary() const override {
        return "everything about a group: names, class, operators, conditions, positions";
    }
    std::vector<std::string_view> formats() const override {
        return {"text", "xyz", "cif", "shelx", "sg", "csv"};
    }

    void declare(CLI::App& app) override {
        app.add_option("SYMBOL", symbol, "the name of a group, such as P21/c")->required();
    }

    void run(output& out) override { out.write(answer_of(resolve_symbol(symbol).group, out)); }

private:
    std::string symbol;
};

}  // namespace

std::unique_ptr<command> make_show_command();
std::unique_ptr<command> make_show_command() { return std::make_unique<show_command>(); }

}  // namespace lomar
