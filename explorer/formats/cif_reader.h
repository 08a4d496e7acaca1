#pragma once

#include <string>
#include <vector>

// This header is read by C++17 too.
namespace lomar {

/// An item of a CIF: a name and its value, or a column of a loop.
struct cif_item {
    std::string tag;                  ///< in small letters
    std::vector<std::string> values;  ///< without quotes; empty for `?` and `.`
    int line = 0;                     ///< of the name, or of the loop
};

struct cif_block {
    std::string name;
    std::vector<cif_item> items;
};

/// The data blocks of a CIF, with those items whose names begin with one of the prefixes (in small
/// letters). Throws std::runtime_error, whose message begins with the line.
std::vector<cif_block> read_cif(const std::string& text, const std::vector<std::string>& prefixes);

}  // namespace lomar
