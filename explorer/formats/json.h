#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "group/basis_change.h"

namespace lomar {

/// Keys keep the order in which they were set.
using json = nlohmann::ordered_json;

/// `["0", "1/2", "0"]`.
json to_json(const fraction_vector& vector);
/// `{"basis": "a,b,c", "origin": ["0", "0", "0"]}`.
json to_json(const basis_change& change);
/// The text, or null for an empty one.
json text_or_null(std::string_view text);

/// The value as text that a person can read too: each member of an object, and each member of an
/// array in one of those, on a line of its own. Bytes that aren't UTF-8 become U+FFFD.
std::string json_text(const json& value);

}  // namespace lomar
