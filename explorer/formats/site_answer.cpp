#include "formats/site_answer.h"

#include <fmt/core.h>

#include "analysis/symmetry_element.h"
#include "formats/csv.h"
#include "formats/json.h"
#include "formats/show_json.h"
#include "formats/show_text.h"
#include "formats/text_layout.h"

namespace lomar {

namespace {

// `1/3 2/3 1/4`, and as decimals where these say more than a fraction of many digits.
std::string point_text(const fraction_vector& point) {
    std::string fractions;
    std::string decimals;
    bool simple = true;
    for (const fraction& part : point) {
        simple = simple && part.den() <= 24;
        fractions += (fractions.empty() ? "" : " ") + part.text();
        decimals += fmt::format("{}{:.6f}", decimals.empty() ? "" : " ", part.to_double());
    }
    return simple ? fractions : decimals;
}

}  // namespace

std::string site_text(const named_group& named, const site& found, bool colour) {
    const std::string place = std::to_string(found.multiplicity) + " " + found.letter;
    std::string text =
        title_text(named, colour) + "\n" +
        bold(wrapped("Site", {place, "site symmetry " + found.site_symmetry}), colour) +
        wrapped("Point", {point_text(found.point)});
    if (found.shift != fraction_vector{}) {
        text += wrapped(
            "Moved by",
            {fmt::format("{:.6f} {:.6f} {:.6f} to be on the site", found.shift[0].to_double(),
                         found.shift[1].to_double(), found.shift[2].to_double())});
    }
    std::vector<std::vector<std::string>> rows;
    for (const symop& op : found.operators) {
        const symmetry_element element = element_of(op);
        const std::string seitz = seitz_text(op);
        rows.push_back(
            {xyz_text(op), seitz.substr(2, seitz.find(" |") - 2), location_text(element)});
    }
    text += "\n" + bold("Operators that fix it", colour) + "\n" + table_text(rows);
    text += "\n" + bold("Orbit", colour) + "\n";
    for (const fraction_vector& point : found.orbit) text += "  " + point_text(point) + "\n";
    return text;
}

std::string site_json(const named_group& named, const site& found) {
    json result;
    add_names(result, named.group);
    result["assumed"] = named.assumed;
    result["point"] = to_json(found.point);
    result["shift"] = to_json(found.shift);
    result["letter"] = std::string(1, found.letter);
    result["multiplicity"] = found.multiplicity;
    result["site_symmetry"] = found.site_symmetry;
    json& operators = result["operators"] = json::array();
    for (const symop& op : found.operators) {
        operators.push_back(operator_json(op, element_of(op)));
    }
    json& orbit = result["orbit"] = json::array();
    for (const fraction_vector& point : found.orbit) orbit.push_back(to_json(point));
    return json_text(result);
}

std::string site_csv(const site& found) {
    std::string text = csv_row({"letter", "multiplicity", "site_symmetry", "x", "y", "z"});
    for (const fraction_vector& point : found.orbit) {
        text += csv_row({std::string(1, found.letter), std::to_string(found.multiplicity),
                         found.site_symmetry, point[0].text(), point[1].text(), point[2].text()});
    }
    return text;
}

}  // namespace lomar
