#include <CLI/App.hpp>
#include <cmath>
#include <fmt/format.h>

#include "command/command.h"
#include "drawing/diagram.h"
#include "group/named_subject.h"
#include "page/magnetic_page.h"

namespace lomar {

namespace {

struct drawn_group {
    std::string name;
    std::vector<symop> operators;
};

drawn_group drawn_named(const std::string& symbol, bool magnetic) {
    const named_subject found = subject_named(symbol, magnetic);
    if (found.magnetic != nullptr) {
        return {magnetic_name(*found.magnetic), group_of(*found.magnetic).operators};
    }
    return {found.group->group.name, found.group->group.operators};
}

void check_shape(const std::vector<symop>& operators, const cell_parameters& cell) {
    const cell_parameters fits = fitting_cell(operators, cell);
    for (std::size_t i = 0; i < 6; ++i) {
        const double allowed = i < 3 ? 0.001 * cell[i] : 0.1;
        if (std::fabs(cell[i] - fits[i]) <= allowed) continue;
        throw input_error(fmt::format(
            "the cell does not fit the group: {} is {:.6g}; one that fits: {:.6g} {:.6g} {:.6g} "
            "{:.6g} {:.6g} {:.6g}",
            std::array{"a", "b", "c", "alpha", "beta", "gamma"}[i], cell[i], fits[0], fits[1],
            fits[2], fits[3], fits[4], fits[5]));
    }
}

class draw_command : public command {
public:
    std::string_view name() const override { return "draw"; }
    std::string_view summary() const override {
        return "the diagrams of symmetry elements and general positions, as SVG";
    }
    std::vector<std::string_view> formats() const override { return {"svg"}; }

    void declare(CLI::App& app) override {
        app.add_option("SYMBOL", symbol, "The name of a space group or magnetic group")->required();
        app.add_option("--axis", axis,
                       "Look along a, b or c; else along the unique axis of a monoclinic group, "
                       "along c of all others")
            ->type_name("AXIS");
        app.add_option("--what", what, "elements, positions or both")->type_name("WHAT");
        app.add_option("--cell", cell, "A B C ALPHA BETA GAMMA: the shape of the cell")
            ->expected(6)
            ->type_name("NUMBER");
        app.add_flag("--magnetic", magnetic, "The symbol is that of a magnetic group");
    }

    void run(output& out) override {
        diagram_options options;
        if (what == "both") {
            options.what = diagram_part::both;
        } else if (what == "positions") {
            options.what = diagram_part::positions;
        } else if (what != "elements") {
            throw usage_error("'" + what + "' can't be drawn; elements, positions or both can");
        }
        if (!axis.empty() && (axis.size() > 1 || axis[0] < 'a' || axis[0] > 'c')) {
            throw usage_error("'" + axis + "' is no axis; a, b and c are");
        }
        const drawn_group group = drawn_named(symbol, magnetic);
        options.name = group.name;
        options.axis = axis.empty() ? customary_axis(group.operators) : axis[0] - 'a';
        if (!cell.empty()) {
            options.cell.emplace();
            std::copy(cell.begin(), cell.end(), options.cell->begin());
            check_shape(group.operators, *options.cell);
        }
        out.write(diagram_svg(group.operators, options));
    }

private:
    std::string symbol, axis, what = "elements";
    std::vector<double> cell;
    bool magnetic = false;
};

}  // namespace

std::unique_ptr<command> make_draw_command();
std::unique_ptr<command> make_draw_command() { return std::make_unique<draw_command>(); }

}  // namespace lomar
