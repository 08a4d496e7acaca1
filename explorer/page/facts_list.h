#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lomar {

/// A list of names and what they stand for. Empty values are left out.
class facts_list {
public:
    void add(std::string_view name, std::string_view text);
    /// The same with content that is markup.
    void add_markup(std::string_view name, const std::string& content);
    std::string result() const { return "<dl class=\"facts\">\n" + items + "</dl>\n"; }

private:
    std::string items;
};

/// The texts, escaped, with the separator between them.
std::string joined(const std::vector<std::string>& texts, std::string_view separator = ", ");

}  // namespace lomar
