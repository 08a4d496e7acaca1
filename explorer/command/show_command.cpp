#include <CLI/App.hpp>

#include "command/command.h"
#include "formats/operator_files.h"
#include "formats/show_json.h"
#include "formats/show_text.h"

namespace lomar {

namespace {

std::string answer_of(named_group named, const output& out) {
    const std::string& format = out.format();
    if (format == "xyz") return xyz_lines(named.group);
    if (format == "cif") return cif_block(named.group);
    if (format == "shelx") return shelx_cards(named.group);
    if (format == "sg") return sg_file(named.group);
    if (format == "csv") return csv_operators(named.group);
    const group_report report = report_of(std::move(named));
    return format == "json" ? json_text(show_json(report)) : show_text(report, out.colour());
}

class show_command : public command {
public:
    std::string_view name() const override { return "show"; }
    std::string_view summary() const override {
        return "names, class, operators, conditions and positions of a group";
    }
    std::vector<std::string_view> formats() const override {
        return {"text", "json", "xyz", "cif", "shelx", "sg", "csv"};
    }

    void declare(CLI::App& app) override {
        app.add_option("SYMBOL", symbol, "the name of a group, such as P21/c")->required();
    }

    void run(output& out) override { out.write(answer_of(resolve_symbol(symbol), out)); }

private:
    std::string symbol;
};

}  // namespace

std::unique_ptr<command> make_show_command();
std::unique_ptr<command> make_show_command() { return std::make_unique<show_command>(); }

}  // namespace lomar
