#include "formats/identify_report.h"

#include "formats/magnetic_report.h"
#include "formats/show_json.h"
#include "formats/show_text.h"
#include "formats/stated_names.h"
#include "formats/text_layout.h"
#include "group/text_fields.h"

namespace lomar {

namespace {

std::string read_text(const identify_report& report) {
    std::string text = std::to_string(report.given) + " operator" + (report.given == 1 ? "" : "s");
    text += ", " + report.from;
    if (!report.block.empty()) text += ", data_" + report.block;
    return text + (report.completed ? "; completed to the group" : "");
}

std::string match_line(match_kind match, std::string_view setting) {
    const std::string of(setting);
    switch (match) {
        case match_kind::exact:
            return "exact: these are the operators of " + of;
        case match_kind::origin:
            return "origin: the axes of " + of + ", another origin";
        default:
            return "transformed: other axes than those of " + of;
    }
}

std::string line(std::string_view name, const std::string& text) { return wrapped(name, {text}); }

// Words that go over into further lines.
std::string sentence(std::string_view name, std::string_view text) {
    std::vector<std::string> words;
    while (!text.empty()) words.emplace_back(take_field(text, ' '));
    return wrapped(name, words, " ");
}

std::string change_lines(match_kind match, const basis_change& change) {
    if (match == match_kind::exact) return "";
    return line("Axes", basis_text(change)) + line("Origin", text(change.origin));
}

std::string space_text(const identification& found) {
    const setting& row = *found.row;
    std::string result = line("Match", match_line(found.match, row.name()));
    result += change_lines(found.match, found.change);
    std::vector<std::string> also;
    for (const setting* other : found.also) also.push_back(other->name());
    result += wrapped("Same operators", also);
    if (row.enantiomorph != 0) {
        result += line(
            "Hand", "in left-handed axes it would be " + standard_setting(row.enantiomorph).name());
    }
    return result;
}

std::string magnetic_lines(const magnetic_identification& found) {
    const magnetic_facts& row = *found.row;
    return line("OG", std::string(row.og_symbol) + " (" + std::string(row.og_number) + ")") +
           line("UNI", std::string(row.uni_symbol)) + line("Type", std::to_string(row.type)) +
           line("Family", standard_setting(row.family_number).name()) +
           line("Match", match_line(found.match, row.bns_symbol)) +
           change_lines(found.match, found.change);
}

named_group answer_of(const identify_report& report) {
    named_group result;
    result.group = group_of(*report.space->row);
    return result;
}

json input_json(const identify_report& report) {
    json input;
    input["operators"] = report.given;
    input["from"] = report.from;
    input["generators_completed"] = report.completed;
    input["block"] = text_or_null(report.block);
    input["contradictions"] = report.contradictions;
    return input;
}

}  // namespace

identify_report identify_block(const operator_block& block, const std::string& from) {
    identify_report report;
    report.from = from;
    report.block = block.name;
    report.given = block.operators.size();
    try {
        const completed_group group = complete(block.operators);
        report.completed = group.grew;
        if (block.magnetic) {
            report.magnetic = identify_magnetic(group);
            report.contradictions = contradictions_of(block, *report.magnetic);
        } else {
            report.space = identify(group);
            report.contradictions = contradictions_of(block, group, *report.space);
        }
    } catch (const std::overflow_error&) {
        report.failure = "all operators together need numbers that are too large";
    } catch (const std::runtime_error& failure) {
        report.failure = failure.what();
    }
    if (!report.failure.empty()) {
        report.space.reset();
        report.magnetic.reset();
    }
    return report;
}

std::string identify_text(const identify_report& report, bool colour) {
    std::string result;
    if (report.space) {
        result += title_text(answer_of(report), colour) + "\n";
    } else if (report.magnetic) {
        const magnetic_facts& row = *report.magnetic->row;
        result += bold(std::string(row.bns_symbol), colour) + "  BNS No. " +
                  std::string(row.bns_number) + "\n\n";
    } else {
        result += "no group\n\n";
    }
    result += line("Read", read_text(report));
    if (report.space) result += space_text(*report.space);
    if (report.magnetic) result += magnetic_lines(*report.magnetic);
    for (const std::string& text : report.contradictions) result += sentence("Contradiction", text);
    if (!report.failure.empty()) result += sentence("Failure", report.failure);
    return result;
}

json identify_json(const identify_report& report) {
    json value = json::object();
    if (report.space) {
        value = show_json(report_of(answer_of(report)));
    } else if (report.magnetic) {
        value = magnetic_object(group_of(*report.magnetic->row), "");
    }
    value["input"] = input_json(report);
    if (!report.failure.empty()) {
        value["error"] = report.failure;
        return value;
    }
    value["match"] = match_text(report.space ? report.space->match : report.magnetic->match);
    value["transformation"] =
        to_json(report.space ? report.space->change : report.magnetic->change);
    value["also"] = json::array();
    if (report.space) {
        for (const setting* other : report.space->also) value["also"].push_back(other->name());
    }
    return value;
}

}  // namespace lomar
