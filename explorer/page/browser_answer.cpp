#include "page/browser_answer.h"

#include <cmath>

#include "drawing/projection.h"
#include "formats/magnetic_report.h"
#include "formats/show_json.h"
#include "page/browser_downloads.h"
#include "page/diagrams.h"
#include "page/facts_list.h"
#include "page/group_page.h"
#include "page/magnetic_page.h"
#include "page/operator_table.h"
#include "page/typed_text.h"

namespace lomar {

namespace {

// The longest part of a page: it is filled later, as the figures are.
constexpr const char* operators_key = "operators";
constexpr const char* empty_operators = "<div data-figure=\"operators\"></div>\n";

// Links lead to what the address bar would say.
page_links links_by_address() {
    page_links links;
    links.to_setting = [](const setting& row) {
        std::string name = row.name();
        for (char& c : name) c = c == ' ' ? '_' : c;
        return "#" + name;
    };
    links.to_magnetic = [](const magnetic_facts& row) { return "#" + std::string(row.bns_number); };
    return links;
}

json cell_for(const space_group& group) {
    json cell = json::array();
    for (const double value : fitting_cell(group.operators, {8, 9, 10, 95, 100, 105})) {
        cell.push_back(std::round(value * 100) / 100);
    }
    return cell;
}

void add_group(json& result, named_group named, const std::string& before) {
    const group_report report = report_of(std::move(named));
    const space_group& group = report.group.group;
    result["name"] = group.name;
    result["title"] = group.name + ", No. " + std::to_string(group.row->number) + ", " +
                      std::to_string(group.operators.size()) + " operators";
    result["html"] = group_article(
        report, links_by_address(),
        before + empty_diagram_section({group.operators, group.name, false}), empty_operators);
    result["cell"] = cell_for(group);
    result["downloads"] = downloads_of_groups();
    if (!result.contains("answer")) result["answer"] = show_json(report);
}

void add_magnetic(json& result, const magnetic_facts& row, const std::string& notation,
                  const std::string& before) {
    const magnetic_group group = group_of(row);
    const std::string name = magnetic_name(row);
    result["name"] = row.bns_number;
    result["title"] = name + ", magnetic, " + std::to_string(group.operators.size()) + " operators";
    result["html"] = magnetic_article(group, notation, links_by_address(),
                                      before + empty_diagram_section({group.operators, name, true}),
                                      empty_operators);
    result["cell"] = nullptr;
    result["downloads"] = downloads_of_magnetic_groups();
    if (!result.contains("answer")) result["answer"] = magnetic_object(group, notation);
}

// What was read, and how it lies to the setting that follows.
std::string identification_section(const json& answer) {
    const json& input = answer["input"];
    facts_list facts;
    facts.add("Read", std::to_string(input["operators"].get<std::size_t>()) + " operators, " +
                          input["from"].get<std::string>() +
                          (input["generators_completed"].get<bool>() ? "; completed" : ""));
    facts.add("Match", answer["match"].get<std::string>());
    const json& change = answer["transformation"];
    std::string origin;
    for (const json& part : change["origin"]) {
        origin += (origin.empty() ? "" : ",") + part.get<std::string>();
    }
    facts.add("Axes", change["basis"].get<std::string>());
    facts.add("Origin", origin);
    std::vector<std::string> also;
    for (const json& name : answer["also"]) also.push_back(name.get<std::string>());
    facts.add_markup("Same operators", joined(also));
    for (const json& line : input["contradictions"]) {
        facts.add("Contradiction", line.get<std::string>());
    }
    return "<section id=\"identified\"><h2>Identified</h2>\n" + facts.result() + "</section>\n";
}

void add_identified(json& result, const identify_report& report) {
    result["answer"] = identify_json(report);
    result["operators"] = true;
    const std::string before = identification_section(result["answer"]);
    if (report.magnetic) return add_magnetic(result, *report.magnetic->row, "", before);
    add_group(result, {group_of(*report.space->row), {}, {}}, before);
}

// Of a space_group or magnetic_group.
template <typename any_group>
std::string content_of(const any_group& group, const std::string& name, bool magnetic,
                       const std::string& key) {
    return key == operators_key ? operator_table(group.operators, group.centring, magnetic)
                                : figure_content({group.operators, name, magnetic}, key);
}

}  // namespace

json answer_to(std::string_view text) {
    json result = json::object();
    try {
        const typed_subject subject = read_typed(text);
        result["address"] = subject.address;
        if (subject.operators) {
            add_identified(result, *subject.operators);
        } else if (subject.magnetic != nullptr) {
            add_magnetic(result, *subject.magnetic, subject.notation, "");
        } else {
            add_group(result, *subject.group, "");
        }
    } catch (const std::exception& failure) {
        result = json::object();
        result["message"] = failure.what();
        result["near"] = names_suggested(failure.what());
    }
    return result;
}

json figure_for(const std::string& name, const std::string& key) {
    const typed_subject subject = read_typed(name);
    json result;
    if (subject.magnetic != nullptr) {
        const magnetic_group group = group_of(*subject.magnetic);
        result["html"] = content_of(group, magnetic_name(*subject.magnetic), true, key);
    } else {
        const space_group& group = subject.group.value().group;
        result["html"] = content_of(group, group.name, false, key);
    }
    return result;
}

}  // namespace lomar
