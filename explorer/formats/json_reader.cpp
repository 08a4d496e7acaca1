#include <algorithm>
#include <nlohmann/json.hpp>

#include "formats/readers.h"
#include "formats/text_lines.h"

namespace lomar {

namespace {

using nlohmann::json;

const std::string* text_of(const json& object, const char* key) {
    const auto at = object.find(key);
    return at != object.end() && at->is_string() ? at->get_ptr<const std::string*>() : nullptr;
}

// Time reversal beside the text, as magnetic groups are written.
void take_time(const json& item, given_operator& op) {
    const auto time = item.find("time_reversal");
    if (time == item.end() || time->is_null()) return;
    if (*time != 1 && *time != -1) throw unreadable_input("time_reversal is 1 or -1");
    if (op.time_given) throw unreadable_input("time reversal is given twice");
    op.time = *time == 1 ? 1 : -1;
    op.time_given = true;
}

void read_list(const json& list, operator_block& block) {
    int place = 0;
    for (const json& item : list) {
        ++place;
        const std::string* text = item.is_string()   ? item.get_ptr<const std::string*>()
                                  : item.is_object() ? text_of(item, "xyz")
                                                     : nullptr;
        const std::string where = "operator " + std::to_string(place) + ": ";
        if (text == nullptr) throw unreadable_input(where + "it has no text");
        try {
            given_operator op = parse_operator(*text, 0);
            if (item.is_object()) take_time(item, op);
            add_operator(block, op);
        } catch (const unreadable_input& failure) {
            throw unreadable_input(where + failure.what());
        }
    }
}

void read_object(const json& object, std::vector<operator_block>& blocks) {
    const auto list = object.find("operators");
    if (list == object.end() || !list->is_array()) {
        throw unreadable_input("the JSON has no list of operators");
    }
    operator_block block;
    read_list(*list, block);
    if (const std::string* name = text_of(object, "name")) block.symbol = *name;
    if (const std::string* number = text_of(object, "bns_number")) {
        block.bns_number = *number;
        block.symbol.clear();
    }
    const auto number = object.find("number");
    if (number != object.end() && number->is_number_integer() && number->get<double>() > 0 &&
        number->get<double>() < 1000) {
        block.number = number->get<int>();
    }
    blocks.push_back(std::move(block));
}

// The parser's message begins with its own names: kept is the place.
std::string place_of(const json::parse_error& failure) {
    const std::string text = failure.what();
    const std::size_t start = text.find("line ");
    const std::size_t end = text.find(':', start);
    if (start == std::string::npos || end == std::string::npos) return "";
    return text.substr(start, end - start) + ": ";
}

// The line of the number that the parser's message quotes.
int line_of_number(std::string_view text, const json::out_of_range& failure) {
    const std::string message = failure.what();
    const std::size_t start = message.find('\'') + 1;
    const std::string number = message.substr(start, message.rfind('\'') - start);
    const std::string_view before = text.substr(0, text.find(number));
    return 1 + static_cast<int>(std::count(before.begin(), before.end(), '\n'));
}

}  // namespace

std::vector<operator_block> read_json(std::string_view text) {
    json value;
    try {
        value = json::parse(text);
    } catch (const json::parse_error& failure) {
        throw unreadable_input(place_of(failure) + "this is no JSON");
    } catch (const json::out_of_range& failure) {
        throw unreadable_input(line_of_number(text, failure), "a number is too large");
    }
    std::vector<operator_block> blocks;
    const bool texts = value.is_array() && !value.empty() && value[0].is_string();
    if (texts) {
        read_list(value, blocks.emplace_back());
    } else if (value.is_array()) {
        for (const json& item : value) read_object(item, blocks);
    } else {
        read_object(value, blocks);
    }
    return blocks;
}

}  // namespace lomar
