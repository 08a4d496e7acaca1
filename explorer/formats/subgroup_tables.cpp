#include "formats/subgroup_tables.h"

#include "formats/csv.h"
#include "formats/show_json.h"
#include "formats/show_text.h"
#include "formats/text_layout.h"

namespace lomar {

namespace {

std::vector<std::string> cells_of(const subgroup& one) {
    return {one.found.row->name(), std::to_string(one.found.row->number), std::to_string(one.index),
            basis_text(one.found.change), text(one.found.change.origin)};
}

std::vector<std::string> with_first(std::string first, std::vector<std::string> cells) {
    cells.insert(cells.begin(), std::move(first));
    return cells;
}

json subgroup_json(const subgroup& one) {
    json value;
    value["name"] = one.found.row->name();
    value["number"] = one.found.row->number;
    value["index"] = one.index;
    value["match"] = match_text(one.found.match);
    value["transformation"] = to_json(one.found.change);
    value["operators"] = json::array();
    for (const symop& op : one.operators) value["operators"].push_back(xyz_text(op));
    return value;
}

std::string heading(const space_group& group, const std::string& what, bool colour) {
    named_group named;
    named.group = group;
    return title_text(named, colour) + "\n" + what + "\n";
}

const std::vector<std::string> columns = {"setting", "number", "index", "axes", "origin"};

std::string csv_of(const std::string& first_column,
                   const std::vector<std::vector<std::string>>& rows) {
    std::string result = csv_row(with_first(first_column, columns));
    for (const auto& row : rows) result += csv_row(row);
    return result;
}

std::vector<std::vector<std::string>> rows_of(const std::vector<subgroup>& subgroups) {
    std::vector<std::vector<std::string>> rows;
    for (const subgroup& one : subgroups) {
        rows.push_back(with_first(std::to_string(one.conjugacy_class), cells_of(one)));
    }
    return rows;
}

std::vector<std::vector<std::string>> rows_of(const std::vector<subgroup_chain>& chains) {
    std::vector<std::vector<std::string>> rows;
    for (std::size_t i = 0; i < chains.size(); ++i) {
        for (const subgroup& step : chains[i]) {
            rows.push_back(with_first(std::to_string(i + 1), cells_of(step)));
        }
    }
    return rows;
}

std::string table_with(const std::string& first_column,
                       std::vector<std::vector<std::string>> rows) {
    rows.insert(rows.begin(), with_first(first_column, columns));
    return table_text(rows);
}

}  // namespace

std::string subgroups_text(const space_group& group, const std::vector<subgroup>& subgroups,
                           bool colour) {
    std::string result = heading(group, "Maximal translationengleiche subgroups", colour);
    if (subgroups.empty()) return result + "none\n";
    return result + table_with("class", rows_of(subgroups)) +
           "\nSubgroups of one class are conjugate. Axes and origin are those in " + group.name +
           ".\n";
}

json subgroups_json(const space_group& group, const std::vector<subgroup>& subgroups) {
    json value;
    add_names(value, group);
    value["subgroups"] = json::array();
    for (const subgroup& one : subgroups) {
        json item = subgroup_json(one);
        item["class"] = one.conjugacy_class;
        value["subgroups"].push_back(std::move(item));
    }
    return value;
}

std::string subgroups_csv(const std::vector<subgroup>& subgroups) {
    return csv_of("class", rows_of(subgroups));
}

std::string chains_text(const space_group& group, const std::string& target,
                        const std::vector<subgroup_chain>& chains, bool colour) {
    return heading(group, "Translationengleiche subgroups " + target, colour) +
           table_with("class", rows_of(chains)) +
           "\nEach class of conjugate subgroups has one chain, each step maximal in the one "
           "before.\n"
           "Index, axes and origin are those in " +
           group.name + ".\n";
}

json chains_json(const space_group& group, const std::string& target,
                 const std::vector<subgroup_chain>& chains) {
    json value;
    add_names(value, group);
    value["to"] = target;
    value["chains"] = json::array();
    for (std::size_t i = 0; i < chains.size(); ++i) {
        json chain;
        chain["class"] = i + 1;
        chain["steps"] = json::array();
        for (const subgroup& step : chains[i]) chain["steps"].push_back(subgroup_json(step));
        value["chains"].push_back(std::move(chain));
    }
    return value;
}

std::string chains_csv(const std::vector<subgroup_chain>& chains) {
    return csv_of("class", rows_of(chains));
}

}  // namespace lomar
