#pragma once

#include <string>

#include "formats/group_report.h"

namespace lomar {

/// What a group is called, as the first lines of an answer: the name, what the symbol left open,
/// and how to ask for the other.
std::string title_text(const named_group& named, bool colour);

/// The text of `lomar show`, for a terminal of 80 columns.
std::string show_text(const group_report& report, bool colour);

}  // namespace lomar
