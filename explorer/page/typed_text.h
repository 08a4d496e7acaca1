#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "formats/identify_report.h"
#include "group/named_subject.h"

namespace lomar {

/// What a text means that was typed or pasted: a group by its name, or else operators.
struct typed_subject : named_subject {
    std::optional<identify_report> operators;  ///< what operators make
    /// The text that says the same in one line.
    std::string address;
};

/// Reads the symbol of a space group, the name of a magnetic group, or operators in any format that
/// lomar reads; of several lists of operators the first that makes a group. Throws a
/// std::exception with a line for the user.
typed_subject read_typed(std::string_view text);

/// The names that the message of an unknown symbol suggests.
std::vector<std::string> names_suggested(std::string_view message);

}  // namespace lomar
