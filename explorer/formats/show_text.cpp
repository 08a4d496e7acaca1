#include "formats/show_text.h"

#include <algorithm>

#include "formats/text_layout.h"

namespace lomar {

namespace {

using table = std::vector<std::vector<std::string>>;

std::string direction_text(const int_vector& v) {
    return std::to_string(v[0]) + " " + std::to_string(v[1]) + " " + std::to_string(v[2]);
}

std::string change_text(const basis_change& change) {
    if (change == basis_change()) return "the standard setting itself";
    return basis_text(change) + "; origin " + text(change.origin);
}

std::vector<std::string> properties(const setting& row) {
    std::vector<std::string> result;
    result.push_back(row.centrosymmetric ? "centrosymmetric" : "without inversion");
    if (row.sohncke) result.push_back("Sohncke");
    result.push_back(row.symmorphic ? "symmorphic" : "not symmorphic");
    if (row.enantiomorph != 0)
        result.push_back("enantiomorph No. " + std::to_string(row.enantiomorph));
    return result;
}

std::string facts_text(const group_report& report) {
    const space_group& group = report.group.group;
    const setting& row = *group.row;
    std::string text;
    const auto add = [&](std::string_view name, std::string_view value) {
        if (!value.empty()) text += wrapped(name, {std::string(value)});
    };
    if (group.tabulated) add("Full symbol", row.full_symbol);
    add("Setting", setting_text(group));
    add("Hall symbol", group.hall);
    text += wrapped("Class",
                    {std::string(row.crystal_system), "point group " + std::string(row.point_group),
                     "Laue class " + std::string(row.laue_class)});
    const std::size_t order = group.operators.size();
    text += wrapped("Lattice", {lattice_text(group), std::to_string(order) +
                                                         (order == 1 ? " operator" : " operators") +
                                                         " in the cell"});
    text += wrapped("Properties", properties(row));
    std::vector<std::string> polar;
    for (const int_vector& direction : polar_directions(group))
        polar.push_back(direction_text(direction));
    text += wrapped("Polar along", polar, "; ");
    add("To standard", change_text(group.to_standard));
    return text + wrapped("Other settings", report.other_settings);
}

// The rotation part of the Seitz symbol, `3+_1-1-1`: the translation is in the operator.
std::string rotation_text(const symop& op) {
    const std::string seitz = seitz_text(op);
    return seitz.substr(2, seitz.find(" |") - 2);
}

// Screw or glide part and location: `(0,1/2,0) 0,y,1/4`.
std::string place_text(const symmetry_element& element) {
    std::string result;
    if (element.intrinsic != fraction_vector{}) result = "(" + text(element.intrinsic) + ")";
    const std::string location = location_text(element);
    if (!result.empty() && !location.empty()) result += ' ';
    return result + location;
}

std::string operators_text(const group_report& report) {
    const space_group& group = report.group.group;
    table rows;
    for (std::size_t i = 0; i < group.primitive_order(); ++i) {
        const symop& op = group.operators[i];
        rows.push_back({std::to_string(i + 1), xyz_text(op), rotation_text(op),
                        place_text(report.elements[i])});
    }
    std::string text = table_text(rows);
    std::vector<std::string> vectors;
    for (std::size_t i = 1; i < group.centring.size(); ++i)
        vectors.push_back("+(" + lomar::text(group.centring[i]) + ")");
    return text + wrapped("  and each with", vectors, " ");
}

std::string conditions_text(const group_report& report) {
    if (report.conditions.empty()) return "  none\n";
    std::size_t width = 0;
    for (const reflection_condition& condition : report.conditions)
        width = std::max(width, condition.text.size() + 4);
    std::string text;
    for (const reflection_condition& condition : report.conditions)
        text += wrapped("  " + condition.text, condition.causes, ", ", width);
    return text;
}

std::string positions_text(const group_report& report) {
    std::string text;
    for (auto position = report.positions.rbegin(); position != report.positions.rend();
         ++position) {
        std::string head = "  " + std::to_string(position->multiplicity);
        head.resize(6, ' ');
        head = head + position->letter + "  " + position->site_symmetry;
        const bool general = position == report.positions.rbegin();
        const std::vector<std::string> all = {"x,y,z and its images by the operators above"};
        text += wrapped(head, general ? all : position->positions, "  ");
    }
    return text;
}

}  // namespace

std::string title_text(const named_group& named, bool colour) {
    const setting& row = *named.group.row;
    std::string title = named.group.name;
    const std::string number =
        "No. " + std::to_string(row.number) + ", " + std::string(row.schoenflies);
    const std::size_t seen = title.size() + number.size() + 2;
    const std::string gap(seen < text_width ? text_width + 2 - seen : 2, ' ');
    return bold(title, colour) + gap + number + "\n" + wrapped("Assumed", named.assumed) +
           wrapped("Otherwise", named.alternatives);
}

std::string show_text(const group_report& report, bool colour) {
    return title_text(report.group, colour) + "\n" + facts_text(report) + "\n" +
           bold("Operators", colour) + "\n" + operators_text(report) + "\n" +
           bold("Reflection conditions", colour) + "\n" + conditions_text(report) + "\n" +
           bold("Wyckoff positions", colour) + "\n" + positions_text(report);
}

}  // namespace lomar
