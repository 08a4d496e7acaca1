#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "group/magnetic_group.h"
#include "group/names.h"

namespace lomar {

/// What a name means: a space group or a magnetic group.
struct named_subject {
    std::optional<named_group> group;
    const magnetic_facts* magnetic = nullptr;
    std::string notation;  ///< what a magnetic name was found as: `BNS symbol`
};

/// Looks for what looks magnetic among the magnetic groups first, for all else among the space
/// groups, and then among the others; with `magnetic` among magnetic groups alone. Throws
/// unknown_symbol with names of the kind that it looks like.
named_subject subject_named(std::string_view name, bool magnetic = false);

}  // namespace lomar
