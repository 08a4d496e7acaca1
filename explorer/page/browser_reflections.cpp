#include "page/browser_reflections.h"

#include <cmath>
#include <fmt/format.h>
#include <stdexcept>

#include "analysis/cell.h"
#include "drawing/projection.h"
#include "formats/reflection_table.h"
#include "page/table_writer.h"

namespace lomar {

namespace {

constexpr std::size_t most_shown = 200;
// As many points of the reciprocal lattice as a browser lists without a pause.
constexpr double most_points = 2e6;

double positive(const json& value, const char* what) {
    const double number = value.is_number() ? value.get<double>() : 0;
    if (std::isfinite(number) && number > 0) return number;
    throw std::runtime_error(std::string(what) + " must be a number above 0");
}

unit_cell cell_of(const json& values) {
    if (!values.is_array() || values.size() != 6)
        throw std::runtime_error("a cell has six numbers");
    const auto at = [&](std::size_t i) { return positive(values[i], "each number of the cell"); };
    return {at(0), at(1), at(2), at(3), at(4), at(5)};
}

void check_number(double points) {
    if (points <= most_points) return;
    throw std::runtime_error(
        fmt::format("that would be some {:.1g} points of the reciprocal lattice; this page lists "
                    "up to {:.0g}, the program lomar more",
                    points, most_points));
}

void take_limits(reflection_table& table, const json& limits) {
    if (!limits.is_array() || limits.size() != 3) throw std::runtime_error("limits are h, k and l");
    double points = 1;
    int_vector result{};
    for (std::size_t i = 0; i < 3; ++i) {
        const double limit = limits[i].is_number() ? limits[i].get<double>() : -1;
        if (!(limit >= 0 && limit <= 100000) || limit != std::floor(limit)) {
            throw std::runtime_error("each limit must be a whole number from 0 on");
        }
        points *= 2 * limit + 1;
        result[i] = static_cast<int>(limit);
    }
    check_number(points);
    table.limits = result;
    table.reflections =
        reflections_within(table.group.group, table.conditions, result, table.absent);
}

void take_cell(reflection_table& table, const json& request) {
    table.given = cell_of(request.at("cell"));
    table.d_min = positive(request.value("d_min", json()), "the smallest d");
    if (request.contains("wavelength") && !request["wavelength"].is_null()) {
        table.wavelength = positive(request["wavelength"], "the wavelength");
    }
    table.cell = fitting_cell(table.group.group, *table.given);
    const double d = *table.d_min;
    check_number(4.19 * volume_of(*table.cell) / (d * d * d));
    table.reflections =
        reflections_down_to(table.group.group, table.conditions, *table.cell, d, table.absent);
}

std::string rows_of(const reflection_table& table) {
    const std::size_t shown = std::min(table.reflections.size(), most_shown);
    std::string caption = std::to_string(table.reflections.size()) + " reflections";
    if (shown < table.reflections.size()) caption += ", the first " + std::to_string(shown);
    std::vector<std::string> columns = {"h", "k", "l", "Multiplicity"};
    if (table.cell) columns.emplace_back("d");
    if (table.wavelength) columns.emplace_back("2-theta");
    if (table.absent) columns.emplace_back("Absent by");
    table_writer out("reflections-table", caption, columns);
    for (std::size_t i = 0; i < shown; ++i) {
        const listed_reflection& row = table.reflections[i];
        out.row();
        for (const int value : {row.h, row.k, row.l, int{row.multiplicity}}) {
            out.cell(std::to_string(value));
        }
        if (table.cell) out.cell(fmt::format("{:.5f}", row.d()));
        if (table.wavelength) {
            const auto angle = row.two_theta(*table.wavelength);
            out.cell(angle ? fmt::format("{:.4f}", *angle) : "beyond the sphere");
        }
        if (!table.absent) continue;
        out.cell(row.broken < 0 ? "" : table.conditions[static_cast<std::size_t>(row.broken)].text);
    }
    return out.result();
}

json file_of(const reflection_table& table, const std::string& format) {
    json result;
    std::string text;
    const text_sink sink = [&](std::string_view part) { text += part; };
    if (format == "hkl") {
        write_hkl(table, sink);
    } else if (format == "json") {
        write_json(table, sink);
    } else {
        write_csv(table, sink);
    }
    result["file"] = "reflections." + format;
    result["text"] = text;
    return result;
}

}  // namespace

json reflections_for(const json& request) {
    reflection_table table;
    table.group = resolve_symbol(request.at("name").get<std::string>());
    table.conditions = conditions_of(table.group.group);
    table.absent = request.value("absent", false);
    try {
        if (request.contains("limits")) {
            take_limits(table, request["limits"]);
        } else {
            take_cell(table, request);
        }
    } catch (const cell_error& failure) {
        json result;
        result["message"] = failure.what();
        const unit_cell& cell = *table.given;
        try {
            result["fits"] = json::array();
            for (const double value :
                 fitting_cell(table.group.group.operators,
                              {cell.a, cell.b, cell.c, cell.alpha, cell.beta, cell.gamma})) {
                result["fits"].push_back(std::round(value * 1e4) / 1e4);
            }
        } catch (const std::domain_error&) {
            result["fits"] = nullptr;  // no cell at all
        }
        return result;
    }
    const std::string format = request.value("format", "");
    if (!format.empty()) return file_of(table, format);
    json result;
    result["html"] = rows_of(table);
    result["count"] = table.reflections.size();
    return result;
}

}  // namespace lomar
