#include "drawing/line_in_page.h"

#include <algorithm>

namespace lomar {

namespace {

// One coordinate of a line: a letter with a factor, and a number.
std::string coordinate_text(const fraction& factor, char letter, const fraction& constant) {
    std::string result;
    if (!factor.is_zero()) {
        if (factor == fraction(-1)) {
            result = "-";
        } else if (factor != fraction(1)) {
            result = factor.text();
        }
        result += letter;
    }
    if (constant.is_zero() && !result.empty()) return result;
    if (!result.empty() && constant.num() > 0) result += '+';
    return result + constant.text();
}

}  // namespace

std::string text_of(const picture& page, const page_line& line) {
    const bool down_first = page.in_cell_order("0", "1") == "0,1";
    const std::size_t first = down_first ? 0 : 1;
    const fraction of_first(line.line[first]);
    const fraction of_other(line.line[1 - first]);
    std::string texts[2];
    const char letter = page.coordinate(first);
    if (of_other.is_zero()) {
        texts[first] = (line.offset / of_first).text();
        texts[1 - first] = page.coordinate(1 - first);
    } else {
        texts[first] = letter;
        texts[1 - first] = coordinate_text(-of_first / of_other, letter, line.offset / of_other);
    }
    return page.in_cell_order(texts[0], texts[1]);
}

segment segment_of(const projection& cell, const page_line& line) {
    const double p = line.line[0];
    const double q = line.line[1];
    const double offset = line.offset.to_double();
    // It runs along (q, -p) from the foot of the origin.
    const double foot = offset / (p * p + q * q);
    double least = -1e9;
    double most = 1e9;
    const double start[] = {foot * p, foot * q};
    const double step[] = {q, -p};
    for (std::size_t i = 0; i < 2; ++i) {
        if (step[i] == 0) continue;
        const double a = -start[i] / step[i];
        const double b = (cell.part()[i].to_double() - start[i]) / step[i];
        least = std::max(least, std::min(a, b));
        most = std::min(most, std::max(a, b));
    }
    const auto at = [&](double t) {
        return cell.at(start[0] + t * step[0], start[1] + t * step[1]);
    };
    segment result{at(least), at(most)};
    const page_vector along = result.to - result.from;
    if (along.x < -1e-6 || (along.x < 1e-6 && along.y < 0)) std::swap(result.from, result.to);
    return result;
}

}  // namespace lomar
