#pragma once

#include <string>

#include "formats/json.h"

namespace lomar {

// The files that the browser's page offers, as [{"format", "label"}].

json downloads_of_groups();
json downloads_of_magnetic_groups();

/// One of them for a setting or magnetic group by its "name": {"file", "text"}. Throws a
/// std::exception with a line for the user.
json download(const std::string& name, const std::string& format);

}  // namespace lomar
