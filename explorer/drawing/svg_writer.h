#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lomar {

/// A number for a picture, to a tenth: `12.5`, `-3`. Not finite ones become 0.
std::string svg_number(double value);

/// Writes markup that SVG and HTML both read. Texts and values of attributes are escaped; bytes
/// that XML allows nowhere, and those that are no UTF-8, become `?`.
class svg_writer {
public:
    /// Begins an element; attributes may follow.
    svg_writer& open(std::string_view tag);
    svg_writer& attribute(std::string_view name, std::string_view value);
    svg_writer& attribute(std::string_view name, double value);
    svg_writer& text(std::string_view content);
    /// Markup that is already escaped, such as what another writer made.
    svg_writer& markup(std::string_view content);
    /// Ends the innermost element.
    svg_writer& close();

    /// Everything so far; all elements must be closed.
    const std::string& result() const { return out; }

private:
    void end_of_tag();

    std::string out;
    std::vector<std::string> tags;
    bool in_tag = false;
};

/// The text with its markup characters as entities.
std::string escaped(std::string_view text);

}  // namespace lomar
