#include <CLI/App.hpp>

#include "analysis/subgroups.h"
#include "command/command.h"
#include "formats/subgroup_tables.h"
#include "group/names.h"

namespace lomar {

namespace {

class subgroups_command : public command {
public:
    std::string_view name() const override { return "subgroups"; }
    std::string_view summary() const override {
        return "maximal subgroups with the same lattice, or the way down to one";
    }
    std::vector<std::string_view> formats() const override { return {"text", "json", "csv"}; }

    void declare(CLI::App& app) override {
        app.add_option("SYMBOL", symbol, "the name of a group, such as Fm-3m")->required();
        app.add_option("--to", target, "the name of a subgroup: chains that lead to it")
            ->type_name("SYMBOL");
    }

    void run(output& out) override {
        const space_group group = resolve_symbol(symbol).group;
        const subgroup_lattice lattice(group);
        if (!target.empty()) {
            write_chains(group, lattice, out);
            return;
        }
        const std::vector<subgroup> subgroups = lattice.maximal();
        if (out.format() == "json") {
            out.write(json_text(subgroups_json(group, subgroups)));
        } else if (out.format() == "csv") {
            out.write(subgroups_csv(subgroups));
        } else {
            out.write(subgroups_text(group, subgroups, out.colour()));
        }
    }

private:
    void write_chains(const space_group& group, const subgroup_lattice& lattice,
                      output& out) const {
        const space_group wanted = resolve_symbol(target).group;
        const std::vector<subgroup_chain> chains = lattice.chains_to(*wanted.row);
        if (chains.empty()) {
            throw input_error("no proper subgroup of " + group.name +
                              " with the same lattice is of the type " + wanted.name);
        }
        if (out.format() == "json") {
            out.write(json_text(chains_json(group, wanted.row->name(), chains)));
        } else if (out.format() == "csv") {
            out.write(chains_csv(chains));
        } else {
            out.write(chains_text(group, wanted.row->name(), chains, out.colour()));
        }
    }

    std::string symbol;
    std::string target;
};

}  // namespace

std::unique_ptr<command> make_subgroups_command();
std::unique_ptr<command> make_subgroups_command() { return std::make_unique<subgroups_command>(); }

}  // namespace lomar
