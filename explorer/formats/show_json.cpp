#include "formats/show_json.h"

namespace lomar {

namespace {

void add_facts(json& object, const named_group& named) {
    const space_group& group = named.group;
    const setting& row = *group.row;
    object["crystal_system"] = row.crystal_system;
    object["point_group"] = row.point_group;
    object["laue_class"] = row.laue_class;
    object["lattice"] = group.lattice == 0 ? json() : json(std::string(1, group.lattice));
    object["order"] = group.operators.size();
    object["centrosymmetric"] = row.centrosymmetric;
    object["sohncke"] = row.sohncke;
    object["symmorphic"] = row.symmorphic;
    object["polar_directions"] = polar_directions(group);
    object["enantiomorph"] = row.enantiomorph == 0 ? json() : json(row.enantiomorph);
    object["assumed"] = named.assumed;
}

json condition_json(const reflection_condition& condition) {
    json result;
    result["class"] = condition.reflection_class;
    result["pattern"] = condition.pattern;
    result["linear"] = condition.linear;
    result["modulus"] = condition.modulus;
    result["text"] = condition.text;
    result["causes"] = condition.causes;
    return result;
}

json position_json(const wyckoff_position& position) {
    json result;
    result["letter"] = std::string(1, position.letter);
    result["multiplicity"] = position.multiplicity;
    result["site_symmetry"] = position.site_symmetry;
    result["positions"] = position.positions;
    return result;
}

}  // namespace

void add_names(json& object, const space_group& group) {
    const setting& row = *group.row;
    object["name"] = group.name;
    object["number"] = row.number;
    // The symbols of a row are in the axes of that row.
    object["hermann_mauguin"] = text_or_null(group.tabulated ? row.symbol : "");
    object["hermann_mauguin_full"] = text_or_null(group.tabulated ? row.full_symbol : "");
    object["setting"] = text_or_null(setting_text(group));
    object["hall"] = group.hall;
    object["schoenflies"] = row.schoenflies;
}

json operator_json(const symop& op, const symmetry_element& element) {
    json result;
    result["xyz"] = xyz_text(op);
    result["kind"] = kind_text(element.kind);
    result["sense"] = element.sense;
    result["axis"] = element.kind == 1 || element.kind == -1 ? json() : json(element.axis);
    result["intrinsic"] = to_json(element.intrinsic);
    result["location"] = text_or_null(location_text(element));
    result["seitz"] = seitz_text(op, element);
    return result;
}

json show_json(const group_report& report) {
    const space_group& group = report.group.group;
    json result;
    add_names(result, group);
    add_facts(result, report.group);
    result["other_settings"] = report.other_settings;
    result["to_standard"] = to_json(group.to_standard);
    json& centring = result["centring"] = json::array();
    for (const fraction_vector& vector : group.centring) centring.push_back(to_json(vector));
    json& operators = result["operators"] = json::array();
    for (std::size_t i = 0; i < group.operators.size(); ++i)
        operators.push_back(operator_json(group.operators[i], report.elements[i]));
    json& conditions = result["conditions"] = json::array();
    for (const reflection_condition& condition : report.conditions)
        conditions.push_back(condition_json(condition));
    json& positions = result["wyckoff"] = json::array();
    for (const wyckoff_position& position : report.positions)
        positions.push_back(position_json(position));
    return result;
}

}  // namespace lomar
