#pragma once

#include "formats/json.h"

namespace lomar {

/// The reflections of a group. `request` has its "name", and either "cell" (six numbers) and
/// "d_min", perhaps "wavelength", or "limits" (h, k, l); "absent" lists those that the group
/// forbids, too; with "format" the result is a file: "csv", "json", or "hkl" with limits.
///
/// Without a format: {"html": a table of the first 500, "count"}; with one {"file", "text"}. A cell
/// that doesn't fit gives {"message", "fits": one that does}. Throws a std::exception with a line
/// for the user.
json reflections_for(const json& request);

}  // namespace lomar
