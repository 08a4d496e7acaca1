#pragma once

#include <string>
#include <string_view>

#include "group/magnetic_group.h"
#include "page/page_links.h"

namespace lomar {

/// What is told of a magnetic group, as the content of an HTML page: names, diagrams, operators.
/// `notation` is what its name was found as; it may be empty. The rest is as in group_article.
std::string magnetic_article(const magnetic_group& group, std::string_view notation,
                             const page_links& links, const std::string& diagrams,
                             const std::string& operators);

/// The whole page, a document of its own.
std::string magnetic_page(const magnetic_group& group, std::string_view notation,
                          const page_links& links = {});

/// The symbol and the number, for titles: `P_a2_1/c (14.80)`.
std::string magnetic_name(const magnetic_facts& row);

}  // namespace lomar
