#pragma once

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "analysis/reflection_list.h"
#include "group/names.h"

namespace lomar {

/// A list of reflections, and what it was asked with.
struct reflection_table {
    named_group group;
    std::vector<reflection_condition> conditions;
    std::optional<unit_cell> cell;   ///< as used: of all that fit the group the nearest
    std::optional<unit_cell> given;  ///< the cell that was asked for
    std::optional<double> d_min;
    std::optional<int_vector> limits;
    std::optional<double> wavelength;
    bool absent = false;  ///< whether absent reflections are listed
    std::vector<listed_reflection> reflections;
};

/// Where a long text goes, a stretch at a time.
using text_sink = std::function<void(std::string_view)>;

/// As text for a terminal, d in angstroms and 2-theta in degrees.
void write_text(const reflection_table& table, bool colour, const text_sink& sink);
/// As JSON: the names of the group, what was asked, and "reflections". Numbers have up to 12
/// digits.
void write_json(const reflection_table& table, const text_sink& sink);
/// As CSV with a head line: h,k,l,multiplicity,d,two_theta,absent,condition.
void write_csv(const reflection_table& table, const text_sink& sink);
/// As the .hkl file of lomar6, of a table with limits and without absent reflections:
/// docs/hkl_file.md. Throws std::invalid_argument for another.
void write_hkl(const reflection_table& table, const text_sink& sink);

}  // namespace lomar
