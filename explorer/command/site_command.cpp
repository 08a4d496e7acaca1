#include <CLI/App.hpp>
#include <stdexcept>

#include "command/command.h"
#include "formats/site_answer.h"

namespace lomar {

namespace {

fraction number_of(const std::string& text) {
    try {
        return parse_coordinate(text);
    } catch (const std::invalid_argument& fault) {
        throw usage_error(std::string("site: ") + fault.what());
    }
}

class site_command : public command {
public:
    std::string_view name() const override { return "site"; }
    std::string_view summary() const override {
        return "Wyckoff letter, site symmetry and orbit of a point";
    }
    std::vector<std::string_view> formats() const override { return {"text", "json", "csv"}; }

    void declare(CLI::App& app) override {
        app.add_option("SYMBOL", symbol_, "the name of a group, such as P21/c")->required();
        app.add_option("X", x_, "coordinates: 0.25, 1/3, -1/4")->required();
        app.add_option("Y", y_)->required();
        app.add_option("Z", z_)->required();
        app.add_option("--tolerance", tolerance_,
                       "how far each coordinate may be off a site (0.001)")
            ->type_name("T");
    }

    void run(output& out) override {
        const fraction_vector point = {number_of(x_), number_of(y_), number_of(z_)};
        const fraction tolerance = number_of(tolerance_);
        if (tolerance < fraction() || tolerance > largest_tolerance()) {
            throw usage_error("site: --tolerance is from 0 to " + largest_tolerance().text());
        }
        const named_group named = resolve_symbol(symbol_);
        const site found = site_of(named.group, point, tolerance);
        if (out.format() == "json") return out.write(site_json(named, found));
        if (out.format() == "csv") return out.write(site_csv(found));
        out.write(site_text(named, found, out.colour()));
    }

private:
    std::string symbol_;
    std::string x_, y_, z_;
    std::string tolerance_ = "0.001";
};

}  // namespace

std::unique_ptr<command> make_site_command();
std::unique_ptr<command> make_site_command() { return std::make_unique<site_command>(); }

}  // namespace lomar
