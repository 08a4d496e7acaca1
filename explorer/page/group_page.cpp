#include "page/group_page.h"

#include "drawing/svg_writer.h"
#include "page/diagrams.h"
#include "page/document.h"
#include "page/facts_list.h"
#include "page/operator_table.h"
#include "page/symbol_markup.h"
#include "page/table_writer.h"

namespace lomar {

namespace {

std::string change_text(const basis_change& change) {
    if (change == basis_change()) return "this is the standard setting";
    return "axes " + basis_text(change) + "; origin " + text(change.origin);
}

std::string properties_text(const setting& row) {
    std::string result = row.centrosymmetric ? "centrosymmetric" : "without inversion";
    if (row.sohncke) result += ", Sohncke";
    return result + (row.symmorphic ? ", symmorphic" : ", not symmorphic");
}

std::string facts_of(const group_report& report, const page_links& links) {
    const space_group& group = report.group.group;
    const setting& row = *group.row;
    facts_list facts;
    facts.add("Number", std::to_string(row.number));
    if (group.tabulated && !row.full_symbol.empty()) {
        facts.add_markup("Full symbol", symbol_markup(row.full_symbol));
    }
    facts.add("Setting", setting_text(group));
    facts.add_markup("Hall symbol", "<code>" + escaped(group.hall) + "</code>");
    facts.add_markup("Schoenflies", schoenflies_markup(row.schoenflies));
    facts.add("Crystal system", row.crystal_system);
    facts.add_markup("Point group", symbol_markup(row.point_group));
    facts.add_markup("Laue class", symbol_markup(row.laue_class));
    facts.add("Lattice", lattice_text(group));
    facts.add("Properties", properties_text(row));
    std::vector<std::string> polar;
    for (const int_vector& direction : polar_directions(group)) {
        polar.push_back(direction_text(direction));
    }
    facts.add_markup("Polar along", joined(polar));
    if (row.enantiomorph != 0) {
        facts.add_markup("Enantiomorph", links.link(standard_setting(row.enantiomorph)));
    }
    facts.add("To standard", change_text(group.to_standard));
    return facts.result();
}

// `P n n n:2 (origin choice 2)`, the name linked if it is one of a setting.
std::string alternatives_of(const named_group& named, const page_links& links) {
    std::string result;
    for (const std::string& text : named.alternatives) {
        const std::size_t end = text.rfind(" (");
        const setting* row = find_setting(text.substr(0, end));
        if (!result.empty()) result += ", ";
        result += row == nullptr || end == std::string::npos
                      ? escaped(text)
                      : links.link(*row) + escaped(text.substr(end));
    }
    return result;
}

std::string head_of(const group_report& report, const page_links& links) {
    const named_group& named = report.group;
    std::string result = "<section id=\"names\"><h1>" + symbol_markup(named.group.name) + "</h1>\n";
    std::string notes;
    if (!named.assumed.empty()) notes = "<strong>Assumed:</strong> " + joined(named.assumed) + ". ";
    if (!named.alternatives.empty()) {
        notes += "<strong>Otherwise:</strong> " + alternatives_of(named, links);
    }
    if (!notes.empty()) result += "<p class=\"assumed\">" + notes + "</p>\n";
    return result + facts_of(report, links) + "</section>\n";
}

std::string section(std::string_view id, std::string_view title, const std::string& content) {
    std::string result = "<section id=\"";
    result.append(id).append("\"><h2>").append(title).append("</h2>\n");
    return result + content + "</section>\n";
}

std::string positions_table(const group_report& report) {
    const space_group& group = report.group.group;
    std::string caption = "Multiplicities count the points of a cell";
    if (group.centring.size() > 1) {
        caption += "; each point is repeated at";
        for (std::size_t i = 1; i < group.centring.size(); ++i) {
            caption += " +(" + text(group.centring[i]) + ")";
        }
    }
    table_writer table("wyckoff-table", caption,
                       {"Letter", "Multiplicity", "Site symmetry", "Coordinates"});
    for (auto it = report.positions.rbegin(); it != report.positions.rend(); ++it) {
        std::string points;
        for (const std::string& point : it->positions) {
            points += "<span>" + escaped(point) + "</span> ";
        }
        table.row().head(std::string(1, it->letter)).cell(std::to_string(it->multiplicity));
        table.code(it->site_symmetry).markup("<div class=\"points\">" + points + "</div>");
    }
    return table.result();
}

std::string conditions_table(const group_report& report) {
    if (report.conditions.empty()) return "<p>None: no reflection is absent by the group.</p>\n";
    table_writer table("conditions-table", "What a reflection of each class must fulfil",
                       {"Class", "Condition", "Cause"});
    for (const reflection_condition& condition : report.conditions) {
        const std::size_t colon = condition.text.find(": ");
        table.row().head(condition.reflection_class);
        table.code(condition.text.substr(colon == std::string::npos ? 0 : colon + 2));
        table.markup(joined(condition.causes));
    }
    return table.result();
}

std::string settings_list(const group_report& report, const page_links& links) {
    if (report.other_settings.empty()) return "<p>This is the only one.</p>\n";
    std::string result = "<ul class=\"names\">\n";
    for (const std::string& name : report.other_settings) {
        const setting* row = find_setting(name);
        result += "<li>" + (row == nullptr ? symbol_markup(name) : links.link(*row)) + "</li>\n";
    }
    return result + "</ul>\n";
}

std::string contents() {
    std::string result = "<nav aria-label=\"On this page\"><ul>";
    const auto add = [&](std::string_view id, std::string_view name) {
        result.append("<li><a href=\"#").append(id).append("\">").append(name).append("</a></li>");
    };
    add("diagrams", "Diagrams");
    add("operators", "Operators");
    add("wyckoff", "Wyckoff positions");
    add("conditions", "Reflection conditions");
    add("settings", "Other settings");
    add("magnetic", "Magnetic groups");
    return result + "</ul></nav>\n";
}

}  // namespace

std::string group_article(const group_report& report, const page_links& links,
                          const std::string& diagrams, const std::string& operators) {
    const space_group& group = report.group.group;
    return head_of(report, links) + diagrams + section("operators", "Operators", operators) +
           section("wyckoff", "Wyckoff positions", positions_table(report)) +
           section("conditions", "Reflection conditions", conditions_table(report)) +
           section("settings", "Other settings", settings_list(report, links)) +
           section("magnetic", "Magnetic groups of this family",
                   links.family_list(group.row->number));
}

std::string group_page(const group_report& report, const page_links& links) {
    const space_group& group = report.group.group;
    return html_document(
        group.name + " (No. " + std::to_string(group.row->number) + ")", links.index,
        contents() + group_article(report, links,
                                   diagram_section({group.operators, group.name, false}),
                                   operator_table(group.operators, group.centring, false)));
}

}  // namespace lomar
