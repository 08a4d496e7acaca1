#include "formats/group_report.h"

#include <charconv>
#include <numeric>
#include <utility>

namespace lomar {

namespace {

// `0 1 0`, several with `;` between them.
std::vector<int_vector> parse_directions(std::string_view text) {
    std::vector<int_vector> result;
    const char* next = text.data();
    const char* const end = next + text.size();
    while (next != end) {
        int_vector vector{};
        for (int& component : vector) {
            if (*next == ' ' || *next == ';') ++next;
            next = std::from_chars(next, end, component).ptr;
        }
        result.push_back(vector);
    }
    return result;
}

int_vector smallest_integers(const fraction_vector& v) {
    std::int64_t common = 1;
    for (const fraction& f : v) common = std::lcm(common, f.den());
    std::int64_t divisor = 0;
    for (const fraction& f : v) divisor = std::gcd(divisor, (f * common).num());
    int_vector result{};
    for (std::size_t i = 0; i < 3; ++i)
        result[i] = static_cast<int>((v[i] * common).num() / (divisor == 0 ? 1 : divisor));
    return result;
}

}  // namespace

group_report report_of(named_group group) {
    group_report report;
    report.elements.reserve(group.group.operators.size());
    for (const symop& op : group.group.operators) report.elements.push_back(element_of(op));
    report.conditions = conditions_of(group.group);
    report.positions = wyckoff_positions(group.group);
    report.other_settings = other_settings(group.group);
    report.group = std::move(group);
    return report;
}

std::string setting_text(const space_group& group) {
    return group.tabulated ? group.row->variant() : "";
}

std::vector<int_vector> polar_directions(const space_group& group) {
    std::vector<int_vector> result = parse_directions(group.row->polar_directions);
    if (group.tabulated) return result;
    // The row is in the standard setting: back to the axes of this group.
    for (int_vector& vector : result) {
        const fraction_vector standard = {vector[0], vector[1], vector[2]};
        vector = smallest_integers(group.to_standard.matrix * standard);
    }
    return result;
}

}  // namespace lomar
