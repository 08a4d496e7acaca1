#include "formats/csv.h"

namespace lomar {

namespace {

void add_field(std::string& row, const std::string& field) {
    if (field.find_first_of(",\"\r\n") == std::string::npos) {
        row += field;
        return;
    }
    row += '"';
    for (const char c : field) {
        if (c == '"') row += '"';
        row += c;
    }
    row += '"';
}

}  // namespace

std::string csv_row(const std::vector<std::string>& fields) {
    std::string row;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) row += ',';
        add_field(row, fields[i]);
    }
    return row + "\n";
}

}  // namespace lomar
