#include <CLI/App.hpp>
#include <algorithm>

#include "command/command.h"
#include "command/input_file.h"
#include "formats/identify_report.h"
#include "formats/magnetic_report.h"
#include "formats/operator_files.h"

namespace lomar {

namespace {

std::string operators_text(const identify_report& report, const std::string& format) {
    if (report.magnetic) {
        const magnetic_group group = group_of(*report.magnetic->row);
        if (format == "xyz") return magnetic_xyz(group);
        if (format == "cif") return magnetic_cif(group);
        throw input_error("magnetic operators have no format '" + format +
                          "'; they have text, json, xyz, cif");
    }
    if (!report.space) return "";
    const space_group group = group_of(*report.space->row);
    if (format == "xyz") return xyz_lines(group);
    if (format == "cif") return cif_block(group);
    if (format == "shelx") return shelx_cards(group);
    if (format == "sg") return sg_file(group);
    return csv_operators(group);
}

std::string answer_of(const std::vector<identify_report>& reports, const output& out) {
    if (out.format() == "json") {
        if (reports.size() == 1) return json_text(identify_json(reports[0]));
        json list = json::array();
        for (const identify_report& report : reports) list.push_back(identify_json(report));
        return json_text(list);
    }
    std::string text;
    for (const identify_report& report : reports) {
        if (!text.empty()) text += "\n";
        text += out.format() == "text" ? identify_text(report, out.colour())
                                       : operators_text(report, out.format());
    }
    return text;
}

std::string failure_of(const identify_report& report) {
    return (report.block.empty() ? "" : "data_" + report.block + ": ") + report.failure;
}

class identify_command : public command {
public:
    std::string_view name() const override { return "identify"; }
    std::string_view summary() const override {
        return "which group these operators make, and in which axes";
    }
    std::vector<std::string_view> formats() const override {
        return {"text", "json", "xyz", "cif", "shelx", "sg", "csv"};
    }

    void declare(CLI::App& app) override {
        app.add_option("FILE", path,
                       "operators: x,y,z lines, CIF, SHELX, .sg, generators, JSON; - for standard "
                       "input")
            ->required();
        app.add_option("--from", kind, "the kind of input: xyz, cif, shelx, sg, generators, json")
            ->type_name("KIND");
    }

    void run(output& out) override {
        const std::vector<std::string> kinds = input_kinds();
        if (!kind.empty() && std::find(kinds.begin(), kinds.end(), kind) == kinds.end()) {
            throw usage_error("identify reads no '" + kind +
                              "'; --from takes xyz, cif, shelx, sg, generators, json");
        }
        const operator_input input = read();
        std::vector<identify_report> reports;
        std::string failure;
        for (const operator_block& block : input.blocks) {
            reports.push_back(identify_block(block, input.from));
            if (failure.empty()) {
                if (!reports.back().failure.empty()) failure = failure_of(reports.back());
            }
        }
        // Of several blocks those that make a group are answered all the same.
        if (reports.size() == 1 && !failure.empty()) throw input_error(in_file(failure));
        out.write(answer_of(reports, out));
        if (failure.empty()) return;
        out.finish();
        throw input_error(in_file(failure));
    }

private:
    operator_input read() const {
        const std::string text = read_input(path);
        try {
            return read_operators(text, kind);
        } catch (const unreadable_input& failure) {
            throw input_error(in_file(failure.what()));
        }
    }
    std::string in_file(const std::string& message) const {
        return (path == "-" ? "standard input" : path) + ": " + message;
    }

    std::string path;
    std::string kind;
};

}  // namespace

std::unique_ptr<command> make_identify_command();
std::unique_ptr<command> make_identify_command() { return std::make_unique<identify_command>(); }

}  // namespace lomar
