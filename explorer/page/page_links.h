#pragma once

#include <functional>
#include <string>

#include "group/magnetic_group.h"
#include "group/settings.h"

namespace lomar {

/// Where the links of a page lead. A page that stands alone has none, and tells names instead.
struct page_links {
    std::function<std::string(const setting&)> to_setting;
    std::function<std::string(const magnetic_facts&)> to_magnetic;
    std::string index;  ///< the list of all pages; empty if there is none

    /// The name of a setting as markup, linked if it can be.
    std::string link(const setting& row) const;
    std::string link(const magnetic_facts& row) const;
    /// The magnetic groups of the family of a space group's number as a list, one of them perhaps
    /// left out.
    std::string family_list(int number, const magnetic_facts* left_out = nullptr) const;
};

/// A link around some markup.
std::string anchor(const std::string& target, const std::string& markup);

}  // namespace lomar
