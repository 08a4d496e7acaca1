#include "formats/operator_files.h"

#include <stdexcept>

#include "analysis/symmetry_element.h"
#include "formats/csv.h"
#include "group/catalogue_names.h"
#include "group/library_adapter.h"

namespace lomar {

namespace {

std::string vector_text(const int_vector& v) {
    return std::to_string(v[0]) + " " + std::to_string(v[1]) + " " + std::to_string(v[2]);
}

}  // namespace

std::string xyz_lines(const space_group& group) {
    std::string text;
    for (const symop& op : group.operators) text.append(xyz_text(op)).append("\n");
    return text;
}

std::string csv_operators(const space_group& group) {
    std::string text = "number,xyz,kind,sense,axis,intrinsic,location,seitz\n";
    for (std::size_t i = 0; i < group.operators.size(); ++i) {
        const symop& op = group.operators[i];
        const symmetry_element element = element_of(op);
        const bool has_axis = element.kind != 1 && element.kind != -1;
        text += csv_row({std::to_string(i + 1), xyz_text(op), kind_text(element.kind),
                         std::to_string(element.sense), has_axis ? vector_text(element.axis) : "",
                         lomar::text(element.intrinsic), location_text(element), seitz_text(op)});
    }
    return text;
}

std::string sg_file(const space_group& group) {
    if (!group.tabulated) {
        throw std::runtime_error("'" + group.name +
                                 "' has no .sg file: lomar6 has no name for these axes");
    }
    return sg_file_text(own_key(*group.row));
}

}  // namespace lomar
