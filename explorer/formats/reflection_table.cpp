#include "formats/reflection_table.h"

#include <cmath>
#include <cstdlib>
#include <fmt/format.h>
#include <iterator>
#include <stdexcept>

#include "formats/csv.h"
#include "formats/json.h"
#include "formats/show_json.h"
#include "formats/show_text.h"
#include "formats/text_layout.h"

namespace lomar {

namespace {

constexpr std::size_t stretch = 1 << 15;

// Passes a text on in stretches.
class sink_buffer {
public:
    explicit sink_buffer(const text_sink& sink) : sink_(sink) {}

    template <typename... Parts>
    void add(fmt::format_string<Parts...> format, Parts&&... parts) {
        fmt::format_to(std::back_inserter(buffer_), format, std::forward<Parts>(parts)...);
        if (buffer_.size() >= stretch) flush();
    }
    /// A whole number, on the right of so many columns, after a blank at least.
    void add_whole(std::int64_t value, int width) { add_digits(value, 0, width); }
    /// A number below 10^9 with so many decimals, likewise.
    void add_decimal(double value, int decimals, int width) {
        double parts = value;
        for (int i = 0; i < decimals; ++i) parts *= 10;
        add_digits(std::llround(parts), decimals, width);
    }
    void flush() {
        sink_({buffer_.data(), buffer_.size()});
        buffer_.clear();
    }

private:
    // The digits from the last one on, with a point before the decimals.
    void add_digits(std::int64_t value, int decimals, int width) {
        char text[64];
        char* const end = text + sizeof text;
        char* next = end;
        std::int64_t rest = std::abs(value);
        for (int n = 0; n <= decimals || rest > 0; ++n, rest /= 10) {
            if (n == decimals && n > 0) *--next = '.';
            *--next = static_cast<char>('0' + rest % 10);
        }
        if (value < 0) *--next = '-';
        do {
            *--next = ' ';
        } while (end - next < width);
        buffer_.append(next, end);
        if (buffer_.size() >= stretch) flush();
    }

    const text_sink& sink_;
    fmt::memory_buffer buffer_;
};

std::optional<double> two_theta_of(const reflection_table& table, const listed_reflection& row) {
    return table.wavelength ? row.two_theta(*table.wavelength) : std::nullopt;
}

const std::string* condition_of(const reflection_table& table, const listed_reflection& row) {
    if (row.broken < 0) return nullptr;
    return &table.conditions[static_cast<std::size_t>(row.broken)].text;
}

std::string asked_text(const reflection_table& table) {
    std::string text;
    if (table.cell) {
        std::vector<std::string> cell = {cell_text(*table.cell)};
        if (table.cell != table.given)
            cell.push_back("made to fit from " + cell_text(*table.given));
        text += wrapped("Cell", cell);
        text += wrapped("Smallest d", {fmt::format("{:.10g}", *table.d_min)});
    }
    if (table.wavelength) {
        text += wrapped("Wavelength", {fmt::format("{:.10g}", *table.wavelength)});
    }
    if (table.limits) {
        const auto& [h, k, l] = *table.limits;
        text += wrapped("Limits", {fmt::format("{} {} {}", h, k, l)});
    }
    const std::string number = std::to_string(table.reflections.size());
    return text + wrapped("Reflections", {number + (table.absent ? ", absent ones included" : ""),
                                          "equivalent ones and Friedel mates as one"});
}

json array_of(const unit_cell& cell) {
    return {cell.a, cell.b, cell.c, cell.alpha, cell.beta, cell.gamma};
}

}  // namespace

void write_text(const reflection_table& table, bool colour, const text_sink& sink) {
    sink_buffer buffer(sink);
    buffer.add("{}\n{}\n{:>6}{:>6}{:>6}{:>6}", title_text(table.group, colour), asked_text(table),
               "h", "k", "l", "mult");
    if (table.cell) buffer.add("{:>13}", "d");
    if (table.wavelength) buffer.add("{:>11}", "2-theta");
    buffer.add("\n");
    for (const listed_reflection& row : table.reflections) {
        for (const int value : {row.h, row.k, row.l, int{row.multiplicity}}) {
            buffer.add_whole(value, 6);
        }
        if (table.cell) buffer.add_decimal(row.d(), 6, 13);
        if (table.wavelength) {
            const auto angle = two_theta_of(table, row);
            if (angle) {
                buffer.add_decimal(*angle, 4, 11);
            } else {
                buffer.add("{:>11}", "-");
            }
        }
        if (const std::string* condition = condition_of(table, row)) {
            buffer.add("  absent: {}", *condition);
        }
        buffer.add("\n");
    }
    buffer.flush();
}

void write_json(const reflection_table& table, const text_sink& sink) {
    json head;
    add_names(head, table.group.group);
    head["assumed"] = table.group.assumed;
    head["cell"] = table.cell ? array_of(*table.cell) : json();
    head["cell_given"] = table.given ? array_of(*table.given) : json();
    head["d_min"] = table.d_min ? json(*table.d_min) : json();
    head["limits"] = table.limits ? json(*table.limits) : json();
    head["wavelength"] = table.wavelength ? json(*table.wavelength) : json();
    std::string text = json_text(head);
    text.resize(text.rfind('}'));
    while (!text.empty() && text.back() == '\n') text.pop_back();
    sink_buffer buffer(sink);
    buffer.add("{},\n  \"reflections\": [", text);
    const char* separator = "\n";
    for (const listed_reflection& row : table.reflections) {
        buffer.add("{}    {{\"h\": {}, \"k\": {}, \"l\": {}, \"multiplicity\": {}, ", separator,
                   row.h, row.k, row.l, row.multiplicity);
        separator = ",\n";
        const auto angle = two_theta_of(table, row);
        if (table.cell) {
            buffer.add("\"d\": {:.12g}, ", row.d());
        } else {
            buffer.add("\"d\": null, ");
        }
        if (angle) {
            buffer.add("\"two_theta\": {:.12g}, ", *angle);
        } else {
            buffer.add("\"two_theta\": null, ");
        }
        const std::string* condition = condition_of(table, row);
        if (condition != nullptr) {
            buffer.add("\"absent\": true, \"condition\": \"{}\"}}", *condition);
        } else {
            buffer.add("\"absent\": false, \"condition\": null}}");
        }
    }
    buffer.add("{}]\n}}\n", table.reflections.empty() ? "" : "\n  ");
    buffer.flush();
}

void write_csv(const reflection_table& table, const text_sink& sink) {
    sink_buffer buffer(sink);
    buffer.add("h,k,l,multiplicity,d,two_theta,absent,condition\n");
    for (const listed_reflection& row : table.reflections) {
        buffer.add("{},{},{},{},", row.h, row.k, row.l, row.multiplicity);
        if (table.cell) buffer.add("{:.12g}", row.d());
        const auto angle = two_theta_of(table, row);
        buffer.add(",");
        if (angle) buffer.add("{:.12g}", *angle);
        const std::string* condition = condition_of(table, row);
        buffer.add(",{}", condition != nullptr ? "yes" : "no");
        // A class in unconventional axes has commas in its name.
        buffer.add(",{}", csv_row({condition != nullptr ? *condition : std::string()}));
    }
    buffer.flush();
}

void write_hkl(const reflection_table& table, const text_sink& sink) {
    if (!table.limits || table.absent) {
        throw std::invalid_argument("a .hkl file wants limits, and no absent reflections");
    }
    sink_buffer buffer(sink);
    const auto& [h, k, l] = *table.limits;
    buffer.add("hkls {} {} {}\n{{\n", h, k, l);
    for (const listed_reflection& row : table.reflections) {
        for (const int value : {row.h, row.k, row.l, int{row.multiplicity}}) {
            buffer.add_whole(value, 5);
        }
        buffer.add("\n");
    }
    buffer.add("}}");
    buffer.flush();
}

}  // namespace lomar
