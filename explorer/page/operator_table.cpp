#include "page/operator_table.h"

#include "page/table_writer.h"

namespace lomar {

namespace {

std::string rotation_text(const symmetry_element& element, const std::string& kind) {
    std::string result = kind + " about " + direction_text(element.axis);
    if (element.sense != 0) result += element.sense > 0 ? ", anticlockwise" : ", clockwise";
    return result;
}

void add_row(table_writer& table, const symop& op, std::size_t number, bool magnetic) {
    const symmetry_element element = element_of(op);
    const std::string text = magnetic ? xyzt_text(op) : xyz_text(op);
    const bool moves = element.intrinsic != fraction_vector{};
    table.row("data-operator", text).head(std::to_string(number)).code(xyz_text(op));
    if (magnetic) table.cell(op.time < 0 ? "reversed" : "");
    table.cell(meaning_text(element));
    table.code(moves ? lomar::text(element.intrinsic) : "").code(location_text(element));
    table.code(seitz_text(op, element));
}

}  // namespace

std::string direction_text(const int_vector& vector) {
    return "[" + std::to_string(vector[0]) + " " + std::to_string(vector[1]) + " " +
           std::to_string(vector[2]) + "]";
}

std::string meaning_text(const symmetry_element& element) {
    const bool moves = element.intrinsic != fraction_vector{};
    const std::string order = std::to_string(std::abs(element.kind)) + "-fold ";
    if (element.kind == 1) return moves ? "translation" : "identity";
    if (element.kind == -1) return "inversion";
    if (element.kind == -2) {
        return (moves ? "glide reflection, normal " : "reflection, normal ") +
               direction_text(element.axis);
    }
    if (element.kind < 0) return rotation_text(element, order + "rotoinversion");
    return rotation_text(element, order + (moves ? "screw rotation" : "rotation"));
}

std::string operator_table(std::span<const symop> operators,
                           const std::vector<fraction_vector>& centring, bool magnetic) {
    std::vector<std::string> columns = {"No.", "Operator"};
    if (magnetic) columns.emplace_back("Time");
    for (const char* column : {"What it does", "Screw or glide part", "Where", "Seitz symbol"}) {
        columns.emplace_back(column);
    }
    table_writer table("operators-table",
                       std::to_string(operators.size()) + " operators of the cell", columns);
    const std::size_t stretch = operators.size() / centring.size();
    for (std::size_t i = 0; i < operators.size(); ++i) {
        if (centring.size() > 1 && i % stretch == 0) {
            table.stretch("+ (" + text(centring[i / stretch]) + ")");
        }
        add_row(table, operators[i], i + 1, magnetic);
    }
    return table.result();
}

}  // namespace lomar
