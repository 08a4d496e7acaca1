#pragma once

#include "group/names.h"
#include "group/symbol_search.h"

namespace lomar {

/// Notes in `found`, the group that a name meant, what the name left open and how to ask for the
/// other settings.
void add_assumptions(const symbol_parts& typed, named_group& found);

}  // namespace lomar
