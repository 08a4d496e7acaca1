#include "formats/text_layout.h"

#include <algorithm>

namespace lomar {

namespace {

void end_line(std::string& text) {
    text.erase(text.find_last_not_of(' ') + 1);
    text += '\n';
}

}  // namespace

std::string wrapped(std::string_view name, const std::vector<std::string>& items,
                    std::string_view separator, std::size_t name_width) {
    std::string text;
    std::string line(name);
    line.resize(std::max(name_width, name.size() + 1), ' ');
    for (std::size_t i = 0; i < items.size(); ++i) {
        const std::string item = items[i] + (i + 1 < items.size() ? std::string(separator) : "");
        const std::size_t seen = item.find_last_not_of(' ') + 1;
        if (line.size() + seen > text_width && line.size() > name_width) {
            end_line(line);
            text += line;
            line.assign(name_width, ' ');
        }
        line += item;
    }
    if (items.empty()) return "";
    end_line(line);
    return text + line;
}

std::string table_text(const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
    }
    std::string text;
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line.append("  ").append(row[i]).append(widths[i] - row[i].size(), ' ');
        }
        end_line(line);
        text += line;
    }
    return text;
}

std::string bold(std::string_view text, bool colour) {
    return colour ? "\x1b[1m" + std::string(text) + "\x1b[0m" : std::string(text);
}

}  // namespace lomar
