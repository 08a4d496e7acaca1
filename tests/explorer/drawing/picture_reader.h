#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "group/symop.h"

namespace lomar::drawing_test {

/// A tag of a picture with its attributes.
struct tag {
    std::string name;
    std::map<std::string, std::string> attributes;

    const std::string& at(const std::string& attribute) const;
    bool has_class(std::string_view wanted) const;
};

/// All opening tags in their order. Throws std::runtime_error when the markup isn't well formed.
std::vector<tag> read_tags(std::string_view markup);

/// How much of the drawn axes a picture of the elements shows.
fraction part_of(const std::vector<tag>& tags);

/// The size of the texts, in pixels, where the picture is 300 pixels wide.
double small_text_of(const std::vector<tag>& tags);

std::vector<std::string> split(std::string_view text, char separator);

/// A place as data-at has it, in the two drawn coordinates: for a line, x and y are those of a
/// point on it, and there is a direction.
struct place {
    std::array<fraction, 2> point;
    std::array<fraction, 2> direction;

    bool is_line() const { return direction != std::array<fraction, 2>{}; }
    /// The same text for places that differ by multiples of `part`, or by steps along the line.
    std::string key(const fraction& part) const;
    /// Whether it meets the square from 0 to `part`: the coordinates as they are.
    bool meets_cell(const fraction& part) const;
};

/// Reads `1/4,0` or `x,-x+1/2`; letters are those of the drawn coordinates.
place read_place(std::string_view text, std::string_view letters);

/// The operator in the two drawn coordinates.
struct plane_operator {
    std::array<std::array<int, 2>, 2> rot;
    std::array<fraction, 2> trans;

    place operator()(const place& old) const;
};

}  // namespace lomar::drawing_test
