#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "drawing/svg_writer.h"

namespace lomar {

/// Writes a table of a page, within a region that scrolls by itself where the page is narrow. All
/// texts are escaped but those of markup().
class table_writer {
public:
    table_writer(std::string_view id, std::string_view caption,
                 const std::vector<std::string>& columns);

    /// Begins a stretch of rows under a headline of its own.
    table_writer& stretch(std::string_view headline);
    /// Begins a row, with an attribute if there is a name for it.
    table_writer& row(std::string_view attribute = "", std::string_view value = "");
    /// The head of the row, and its cells.
    table_writer& head(std::string_view text);
    table_writer& cell(std::string_view text);
    table_writer& code(std::string_view text);
    table_writer& markup(std::string_view content);

    std::string result();

private:
    void end_row();

    svg_writer out;
    std::size_t n_columns;
    bool in_row = false;
};

}  // namespace lomar
