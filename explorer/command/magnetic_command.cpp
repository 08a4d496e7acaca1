#include <CLI/App.hpp>
#include <optional>

#include "command/command.h"
#include "formats/magnetic_report.h"
#include "group/names.h"

namespace lomar {

namespace {

class magnetic_command : public command {
public:
    std::string_view name() const override { return "magnetic"; }
    std::string_view summary() const override {
        return "a magnetic group by its BNS, OG or UNI name, or a list of them";
    }
    std::vector<std::string_view> formats() const override {
        return {"text", "json", "csv", "cif", "xyz"};
    }

    void declare(CLI::App& app) override {
        app.add_option("NAME", name_, "a number or symbol, to the letter: 14.79, P_a2_1/c");
        app.add_option("--family", family_, "list the groups of this space group");
    }

    void run(output& out) override {
        if (name_ && !family_.empty()) {
            throw usage_error("--family lists groups, and takes no name");
        }
        out.write(name_ ? one_group(*name_, out.format()) : list_of_groups(out.format()));
    }

private:
    std::string list_of_groups(const std::string& format) const {
        if (format == "cif" || format == "xyz") {
            throw usage_error("--format " + format + " is for one group; give its name");
        }
        const int family = family_.empty() ? 0 : resolve_symbol(family_).group.row->number;
        std::vector<const magnetic_facts*> rows;
        for (const magnetic_facts& row : magnetic_groups()) {
            if (family == 0 || row.family_number == family) rows.push_back(&row);
        }
        if (format == "json") return magnetic_list_json(rows);
        return format == "csv" ? magnetic_csv(rows) : magnetic_table(rows);
    }

    static std::string one_group(const std::string& name, const std::string& format) {
        std::string notation;
        const magnetic_facts& row = find_magnetic(name, &notation);
        if (format == "csv") return magnetic_csv({&row});
        const magnetic_group group = group_of(row);
        if (format == "json") return magnetic_json(group, notation);
        if (format == "cif") return magnetic_cif(group);
        return format == "xyz" ? magnetic_xyz(group) : magnetic_text(group, notation);
    }

    std::optional<std::string> name_;
    std::string family_;
};

}  // namespace

std::unique_ptr<command> make_magnetic_command();
std::unique_ptr<command> make_magnetic_command() { return std::make_unique<magnetic_command>(); }

}  // namespace lomar
