#pragma once

#include <string>

#include "formats/group_report.h"
#include "page/page_links.h"

namespace lomar {

/// All that is told of a group, as the content of an HTML page: names, what was assumed, diagrams,
/// operators, Wyckoff positions, reflection conditions, other settings. `diagrams`, which follow
/// the names, are those of diagram_section, `operators` is their table: a page may be made without.
std::string group_article(const group_report& report, const page_links& links,
                          const std::string& diagrams, const std::string& operators);

/// The whole page, a document of its own.
std::string group_page(const group_report& report, const page_links& links = {});

}  // namespace lomar
