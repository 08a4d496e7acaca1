#include <CLI/App.hpp>
#include <cmath>

#include "command/command.h"
#include "formats/reflection_table.h"

namespace lomar {

namespace {

// A number of the command line that must be above 0, once the option is there.
std::optional<double> positive(const CLI::App& app, const char* option, double value) {
    if (app.count(option) == 0) return std::nullopt;
    if (std::isfinite(value) && value > 0) return value;
    throw usage_error(std::string("reflections: ") + option + " wants a number above 0");
}

class reflections_command : public command {
public:
    std::string_view name() const override { return "reflections"; }
    std::string_view summary() const override {
        return "reflections of a group, within limits or down to a d of a cell";
    }
    std::vector<std::string_view> formats() const override { return {"text", "json", "csv"}; }

    void declare(CLI::App& app) override {
        app_ = &app;
        app.add_option("SYMBOL", symbol_, "the name of a group, such as P21/c")->required();
        app.add_option("--limits", limits_, "the largest |h|, |k| and |l|")
            ->expected(3)
            ->type_name("H K L");
        app.add_option("--cell", cell_, "edges in angstroms and angles in degrees; wants --d-min")
            ->expected(6)
            ->type_name("A B C AL BE GA");
        app.add_option("--d-min", d_min_, "the smallest d in angstroms")->type_name("D");
        app.add_option("--wavelength", wavelength_, "in angstroms, for 2-theta; wants --cell")
            ->type_name("W");
        app.add_flag("--absent", absent_, "list absent reflections, too, with the reason");
    }

    void run(output& out) override {
        reflection_table table;
        take_request(table);
        table.group = resolve_symbol(symbol_);
        const space_group& group = table.group.group;
        table.conditions = conditions_of(group);
        if (table.cell) {
            table.given = table.cell;
            table.cell = fitting_cell(group, *table.given);
            table.reflections =
                reflections_down_to(group, table.conditions, *table.cell, *table.d_min, absent_);
        } else {
            table.reflections = reflections_within(group, table.conditions, *table.limits, absent_);
        }
        const text_sink sink = [&](std::string_view text) { out.write(text); };
        if (out.format() == "json") return write_json(table, sink);
        if (out.format() == "csv") return write_csv(table, sink);
        write_text(table, out.colour(), sink);
    }

private:
    void take_request(reflection_table& table) const {
        table.d_min = positive(*app_, "--d-min", d_min_);
        table.wavelength = positive(*app_, "--wavelength", wavelength_);
        table.absent = absent_;
        if (limits_.empty() == cell_.empty()) {
            throw usage_error("reflections wants either --limits or --cell with --d-min");
        }
        if (cell_.empty() == table.d_min.has_value()) {
            throw usage_error("reflections: --cell and --d-min want each other");
        }
        if (cell_.empty() && table.wavelength) {
            throw usage_error("reflections: --wavelength wants --cell");
        }
        if (!cell_.empty()) {
            table.cell = {cell_[0], cell_[1], cell_[2], cell_[3], cell_[4], cell_[5]};
            return;
        }
        table.limits = {limits_[0], limits_[1], limits_[2]};
        for (const int limit : limits_) {
            if (limit < 0) throw usage_error("reflections: a limit is below 0");
        }
    }

    const CLI::App* app_ = nullptr;
    std::string symbol_;
    std::vector<int> limits_;
    std::vector<double> cell_;
    double d_min_ = 0;
    double wavelength_ = 0;
    bool absent_ = false;
};

}  // namespace

std::unique_ptr<command> make_reflections_command();
std::unique_ptr<command> make_reflections_command() {
    return std::make_unique<reflections_command>();
}

}  // namespace lomar
