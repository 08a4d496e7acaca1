#include "page/typed_text.h"

#include <algorithm>
#include <stdexcept>

namespace lomar {

namespace {

// Addresses that are longer name the group in the place of its operators.
constexpr std::size_t longest_address = 4000;

std::string_view trimmed(std::string_view text) {
    if (text.starts_with("\xef\xbb\xbf")) text.remove_prefix(3);
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(" \t\r\n") + 1 - begin);
}

// Lines, a format that tells itself, or commas that aren't in the brackets of a Hall symbol.
bool looks_like_operators(std::string_view text) {
    if (text.find_first_of("\r\n{") != std::string_view::npos) return true;
    if (kind_of(text) != "xyz") return true;
    const std::size_t comma = text.find(',');
    return comma != std::string_view::npos && text.substr(0, comma).find('(') > comma;
}

std::string name_of(const identify_report& report) {
    return report.magnetic ? std::string(report.magnetic->row->bns_number)
                           : report.space->row->name();
}

typed_subject identified(std::string_view text) {
    const operator_input input = read_operators(text);
    typed_subject result;
    for (const operator_block& block : input.blocks) {
        identify_report report = identify_block(block, input.from);
        const bool found = report.failure.empty();
        if (found || !result.operators) result.operators = std::move(report);
        if (!found) continue;
        for (const given_operator& op : block.operators) {
            result.address += (result.address.empty() ? "" : ";") + given_text(op);
            if (result.address.size() > longest_address) break;
        }
        break;
    }
    if (!result.operators) throw std::runtime_error("there are no operators in this text");
    const identify_report& report = *result.operators;
    if (!report.failure.empty()) throw std::runtime_error(report.failure);
    if (result.address.size() > longest_address) result.address = name_of(report);
    return result;
}

// The symbol with underscores for its blanks, if that means the same.
std::string address_of(const named_group& named, std::string_view text) {
    std::string result(text);
    std::replace(result.begin(), result.end(), ' ', '_');
    try {
        if (resolve_symbol(result).group.name == named.group.name) return result;
    } catch (const unknown_symbol&) {
        // It keeps its blanks.
    }
    return std::string(text);
}

}  // namespace

typed_subject read_typed(std::string_view text) {
    text = trimmed(text);
    if (looks_like_operators(text)) return identified(text);
    typed_subject result{subject_named(text), {}, std::string(text)};
    if (result.group) result.address = address_of(*result.group, text);
    return result;
}

std::vector<std::string> names_suggested(std::string_view message) {
    constexpr std::string_view mark = "; near: ";
    std::vector<std::string> result;
    const std::size_t begin = message.rfind(mark);
    if (begin == std::string_view::npos) return result;
    message.remove_prefix(begin + mark.size());
    while (!message.empty()) {
        const std::size_t end = std::min(message.find(", "), message.size());
        result.emplace_back(message.substr(0, end));
        message.remove_prefix(std::min(end + 2, message.size()));
    }
    return result;
}

}  // namespace lomar
