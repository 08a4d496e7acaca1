#include "formats/magnetic_report.h"

#include <algorithm>

#include "analysis/symmetry_element.h"
#include "formats/csv.h"
#include "formats/json.h"
#include "formats/operator_files.h"
#include "formats/show_json.h"
#include "formats/text_layout.h"
#include "group/settings.h"

namespace lomar {

namespace {

std::string type_text(const magnetic_facts& row) {
    constexpr const char* types[] = {
        "colourless", "grey", "primed operators, no primed translation", "primed translations"};
    return std::to_string(row.type) + " (" + types[row.type - 1] + ")";
}

std::string group_text(int number) {
    return std::to_string(number) + " " + standard_setting(number).name();
}

std::vector<std::string> fields_of(const magnetic_facts& row) {
    return {std::string(row.bns_number),    std::string(row.bns_symbol),
            std::string(row.og_number),     std::string(row.og_symbol),
            std::to_string(row.uni_number), std::string(row.uni_symbol),
            std::to_string(row.type),       std::to_string(row.family_number)};
}

void add_names(json& result, const magnetic_facts& row) {
    result["bns_number"] = row.bns_number;
    result["bns_symbol"] = row.bns_symbol;
    result["og_number"] = row.og_number;
    result["og_symbol"] = row.og_symbol;
    result["uni_number"] = row.uni_number;
    result["uni_symbol"] = row.uni_symbol;
    result["type"] = row.type;
    result["family_number"] = row.family_number;
    result["parent_number"] = row.parent_number;
    result["lattice"] = std::string(1, row.lattice);
}

json magnetic_operator_json(const symop& op) {
    json result;
    result["xyz"] = xyz_text(op);
    result["time_reversal"] = op.time;
    result.update(operator_json(op, element_of(op)));
    return result;
}

void add_line(std::string& text, std::string_view name, const std::string& value) {
    text += wrapped(name, {value});
}

std::string signed_text(const symop& op) { return xyz_text(op) + (op.time < 0 ? ",-1" : ",+1"); }

void add_loop(std::string& text, const std::string& category, const std::vector<symop>& ops) {
    text += "loop_\n" + category + ".id\n" + category + ".xyz\n";
    for (std::size_t i = 0; i < ops.size(); ++i) {
        text += std::to_string(i + 1) + " " + signed_text(ops[i]) + "\n";
    }
}

}  // namespace

std::string magnetic_table(const std::vector<const magnetic_facts*>& rows) {
    std::vector<std::vector<std::string>> table = {{"BNS", "", "OG", "", "type"}};
    for (const magnetic_facts* const row : rows) {
        const std::vector<std::string> fields = fields_of(*row);
        table.push_back({fields[0], fields[1], fields[2], fields[3], fields[6]});
    }
    const std::string count = std::to_string(rows.size());
    return table_text(table) + count + (rows.size() == 1 ? " group\n" : " groups\n");
}

std::string magnetic_list_json(const std::vector<const magnetic_facts*>& rows) {
    json result = json::array();
    for (const magnetic_facts* const row : rows) {
        json one;
        add_names(one, *row);
        result.push_back(std::move(one));
    }
    return json_text(result);
}

std::string magnetic_csv(const std::vector<const magnetic_facts*>& rows) {
    std::string result = csv_row({"bns_number", "bns_symbol", "og_number", "og_symbol",
                                  "uni_number", "uni_symbol", "type", "family_number"});
    for (const magnetic_facts* const row : rows) result += csv_row(fields_of(*row));
    return result;
}

std::string magnetic_text(const magnetic_group& group, std::string_view notation) {
    const magnetic_facts& row = *group.row;
    std::string text;
    add_line(text, "BNS", std::string(row.bns_number) + "  " + std::string(row.bns_symbol));
    add_line(text, "OG", std::string(row.og_number) + "  " + std::string(row.og_symbol));
    add_line(text, "UNI", std::to_string(row.uni_number) + "  " + std::string(row.uni_symbol));
    add_line(text, "Found as", std::string(notation));
    add_line(text, "Type", type_text(row));
    add_line(text, "Family", group_text(row.family_number));
    if (row.type == 4) add_line(text, "Unprimed", group_text(row.parent_number));
    add_line(text, "BNS in OG cell", std::string(row.og_to_bns));
    std::vector<std::string> vectors;
    for (const fraction_vector& vector : group.centring)
        vectors.push_back("(" + lomar::text(vector) + ")");
    text += wrapped("Centring", vectors, " ");
    text += "\nOperators: " + std::to_string(group.operators.size()) + "\n";
    std::vector<std::vector<std::string>> table;
    for (const symop& op : group.operators) {
        table.push_back({std::to_string(table.size() + 1), xyzt_text(op), seitz_text(op)});
    }
    return text + table_text(table);
}

json magnetic_object(const magnetic_group& group, std::string_view notation) {
    json result;
    add_names(result, *group.row);
    result["found_as"] = text_or_null(notation);
    result["family"] = standard_setting(group.row->family_number).name();
    result["parent"] = standard_setting(group.row->parent_number).name();
    result["og_to_bns"] = group.row->og_to_bns;
    result["order"] = group.operators.size();
    result["centring"] = json::array();
    for (const fraction_vector& vector : group.centring)
        result["centring"].push_back(to_json(vector));
    result["operators"] = json::array();
    for (const symop& op : group.operators)
        result["operators"].push_back(magnetic_operator_json(op));
    return result;
}

std::string magnetic_json(const magnetic_group& group, std::string_view notation) {
    return json_text(magnetic_object(group, notation));
}

std::string magnetic_cif(const magnetic_group& group) {
    const magnetic_facts& row = *group.row;
    std::string text = "data_" + std::string(row.bns_number) + "\n";
    const auto add_item = [&](const std::string& name, std::string_view value) {
        text += "_space_group_magn." + name + "  " + cif_value(value) + "\n";
    };
    add_item("number_BNS", row.bns_number);
    add_item("name_BNS", row.bns_symbol);
    add_item("number_OG", row.og_number);
    add_item("name_OG", row.og_symbol);
    std::vector<symop> translations;
    std::vector<symop> representatives;
    for (const symop& op : group.operators) {
        if (op.rot == unit_matrix) translations.push_back(op);
    }
    // Of operators with the same rotation one will do, unprimed where there is such.
    for (const int time : {1, -1}) {
        for (const symop& op : group.operators) {
            const auto known =
                std::find_if(representatives.begin(), representatives.end(),
                             [&](const symop& other) { return other.rot == op.rot; });
            if (op.time == time && known == representatives.end()) representatives.push_back(op);
        }
    }
    add_loop(text, "_space_group_symop_magn_operation", representatives);
    add_loop(text, "_space_group_symop_magn_centering", translations);
    return text;
}

std::string magnetic_xyz(const magnetic_group& group) {
    std::string text;
    for (const symop& op : group.operators) text += xyzt_text(op) + "\n";
    return text;
}

}  // namespace lomar
