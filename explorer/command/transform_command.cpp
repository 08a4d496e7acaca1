#include <CLI/App.hpp>
#include <CLI/Option.hpp>
#include <algorithm>
#include <fmt/format.h>

#include "analysis/transform.h"
#include "command/command.h"
#include "command/input_file.h"
#include "formats/cif_transform.h"
#include "formats/group_report.h"
#include "formats/operator_files.h"
#include "formats/show_json.h"
#include "formats/show_text.h"
#include "formats/text_layout.h"
#include "group/names.h"

namespace lomar {

namespace {

// Axes as expressions, or the nine numbers of P row by row.
fraction_matrix read_matrix(std::string text) {
    if (text.find_first_of("abcABC") != std::string::npos) return parse_basis(text);
    std::ranges::replace(text, ';', ',');
    std::ranges::replace(text, ',', ' ');
    fraction_matrix result;
    std::size_t count = 0;
    for (std::size_t at = text.find_first_not_of(' '); at != std::string::npos;) {
        const std::size_t end = std::min(text.find(' ', at), text.size());
        if (count == 9) throw usage_error("--basis takes nine numbers");
        result[count / 3][count % 3] = parse_number(text.substr(at, end - at));
        ++count;
        at = text.find_first_not_of(' ', end);
    }
    if (count != 9) throw usage_error("--basis takes axes such as a-c,b,c, or nine numbers");
    if (determinant(result).is_zero()) throw input_error("the new axes lie in one plane");
    return result;
}

double read_real(const std::string& text) { return parse_number(text).to_double(); }

// The numbers of an option that may come several times, in threes.
std::vector<fraction_vector> read_triples(const std::vector<std::string>& texts,
                                          const char* option) {
    if (texts.size() % 3 != 0) throw usage_error(std::string(option) + " takes three numbers");
    std::vector<fraction_vector> result;
    for (std::size_t i = 0; i < texts.size(); i += 3) {
        result.push_back({parse_coordinate(texts[i]), parse_coordinate(texts[i + 1]),
                          parse_coordinate(texts[i + 2])});
    }
    return result;
}

struct moved {
    fraction_vector from;
    fraction_vector to;
};

struct transformation {
    named_group from;
    space_group to;
    basis_change change;
    std::vector<double> cell;
    std::vector<moved> points;
    std::vector<moved> reflections;
};

json moved_json(const std::vector<moved>& list) {
    json result = json::array();
    for (const moved& item : list) {
        result.push_back({{"from", to_json(item.from)}, {"to", to_json(item.to)}});
    }
    return result;
}

std::string transformation_json(const transformation& found) {
    named_group to;
    to.group = found.to;
    json object = show_json(report_of(std::move(to)));
    object["from"] = found.from.group.name;
    object["transformation"] = to_json(found.change);
    object["inverse"] = to_json(inverse(found.change));
    object["cell"] = found.cell.empty() ? json() : json(found.cell);
    object["points"] = moved_json(found.points);
    object["reflections"] = moved_json(found.reflections);
    return json_text(object);
}

std::string moved_text(const char* title, const std::vector<moved>& list) {
    if (list.empty()) return {};
    std::string result = fmt::format("\n{}\n", title);
    for (const moved& item : list) {
        result += fmt::format("  {}  ->  {}\n", text(item.from), text(item.to));
    }
    return result;
}

std::string change_text(const basis_change& change) {
    return fmt::format("({})  origin {}", basis_text(change), text(change.origin));
}

std::string transformation_text(const transformation& found, bool colour) {
    const space_group& to = found.to;
    std::string result = title_text(found.from, colour);
    result += fmt::format("\nin the axes of\n\n{}\n", bold(to.name, colour));
    if (!to.tabulated) {
        result +=
            fmt::format("no tabulated setting; number {}, {}\n", to.row->number, to.row->name());
    }
    result += fmt::format("\nnew axes  {}\nand back  {}\n", change_text(found.change),
                          change_text(inverse(found.change)));
    if (!found.cell.empty()) {
        result +=
            fmt::format("\nCell\n  {:.4f} {:.4f} {:.4f}  {:.3f} {:.3f} {:.3f}\n", found.cell[0],
                        found.cell[1], found.cell[2], found.cell[3], found.cell[4], found.cell[5]);
    }
    result += moved_text("Points", found.points);
    result += moved_text("Reflections", found.reflections);
    return result + fmt::format("\nOperators ({})\n", to.operators.size()) + xyz_lines(to);
}

class transform_command : public command {
public:
    std::string_view name() const override { return "transform"; }
    std::string_view summary() const override {
        return "a group, and what belongs to it, in other axes";
    }
    std::vector<std::string_view> formats() const override {
        return {"text", "json", "xyz", "cif", "shelx", "csv"};
    }

    void declare(CLI::App& app) override {
        app.add_option("SYMBOL", symbol_, "the name of a group; not needed with --cif");
        app.add_option("--to", to_, "the axes of this setting of the same group");
        app.add_option("--basis", basis_,
                       "the new axes: a-c,b,c, or the matrix P of (a',b',c') = (a,b,c) P by rows");
        app.add_option("--origin", origin_, "the new origin in the old axes: 0,0,1/4");
        app.add_option("--cell", cell_, "a cell to be transformed: A B C ALPHA BETA GAMMA")
            ->expected(6);
        app.add_option("--point", points_, "a point to be transformed; may come again")
            ->expected(3)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
        app.add_option("--hkl", reflections_, "a reflection to be transformed; may come again")
            ->expected(3)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
        app.add_option("--cif", cif_, "a CIF to be written in the new axes; - is standard input");
    }

    void run(output& out) override {
        if (to_.empty() == basis_.empty()) {
            throw usage_error("transform takes either --to or --basis");
        }
        if (!to_.empty() && !origin_.empty()) throw usage_error("--origin goes with --basis");
        if (!cif_.empty()) return run_cif(out);
        if (symbol_.empty()) throw usage_error("SYMBOL is required");
        out.write(answer(transformation_of(), out));
    }

private:
    basis_change change_from(const space_group& group) const {
        if (!to_.empty()) return change_between(group, resolve_symbol(to_).group);
        basis_change change{read_matrix(basis_), {}};
        if (!origin_.empty()) change.origin = parse_point(origin_);
        return change;
    }

    transformation transformation_of() const {
        transformation found;
        found.from = resolve_symbol(symbol_);
        found.change = change_from(found.from.group);
        found.to = in_other_axes(found.from.group, found.change);
        if (!cell_.empty()) {
            cell_lengths cell{};
            std::ranges::transform(cell_, cell.begin(), read_real);
            check_cell(cell);
            const cell_lengths turned = transformed_cell(cell, found.change.matrix);
            found.cell.assign(turned.begin(), turned.end());
        }
        for (const fraction_vector& point : read_triples(points_, "--point")) {
            found.points.push_back({point, transformed(point, found.change)});
        }
        for (const fraction_vector& hkl : read_triples(reflections_, "--hkl")) {
            found.reflections.push_back({hkl, transformed_indices(hkl, found.change.matrix)});
        }
        return found;
    }

    static std::string answer(const transformation& found, const output& out) {
        const std::string& format = out.format();
        if (format == "json") return transformation_json(found);
        if (format == "xyz") return xyz_lines(found.to);
        if (format == "cif") return cif_block(found.to);
        if (format == "shelx") return shelx_cards(found.to);
        if (format == "csv") return csv_operators(found.to);
        return transformation_text(found, out.colour());
    }

    void run_cif(output& out) const {
        if (!cell_.empty() || !points_.empty() || !reflections_.empty()) {
            throw usage_error("--cell, --point and --hkl don't go with --cif");
        }
        if (out.format() != "text" && out.format() != "cif") {
            throw usage_error("--cif is answered by a CIF alone");
        }
        out.write(transformed_cif(read_input(cif_), [this](const space_group& group) {
            if (!symbol_.empty()) check_symbol(group);
            return change_from(group);
        }));
    }

    void check_symbol(const space_group& group) const {
        const space_group wanted = resolve_symbol(symbol_).group;
        if (wanted.row->number == group.row->number) return;
        throw input_error("the file's group is " + group.name + ", number " +
                          std::to_string(group.row->number) + ", not " + wanted.name);
    }

    std::string symbol_;
    std::string to_;
    std::string basis_;
    std::string origin_;
    std::string cif_;
    std::vector<std::string> cell_;
    std::vector<std::string> points_;
    std::vector<std::string> reflections_;
};

}  // namespace

std::unique_ptr<command> make_transform_command();
std::unique_ptr<command> make_transform_command() { return std::make_unique<transform_command>(); }

}  // namespace lomar
