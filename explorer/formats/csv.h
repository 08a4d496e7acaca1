#pragma once

#include <string>
#include <vector>

namespace lomar {

/// A line of a table: fields with commas between them, and a line feed. A field that holds a comma,
/// a quote or a line end is put in double quotes, its own quotes doubled (RFC 4180).
std::string csv_row(const std::vector<std::string>& fields);

}  // namespace lomar
