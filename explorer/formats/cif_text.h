#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lomar {

// A CIF as text with places, for changes that leave the rest as it is, byte by byte. It is for
// texts that read_cif has found to be a CIF.

/// A stretch of the text.
struct cif_token {
    enum class kind { block, loop, tag, value, other };
    kind what = kind::value;
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// A loop, or a name with its value, which is a loop of one.
struct cif_table {
    std::size_t begin = 0;           ///< place of `loop_`, or of the name
    std::size_t end = 0;             ///< after the last value
    std::vector<std::string> tags;   ///< in small letters, dots as underscores
    std::vector<std::string> names;  ///< the same as they are written
    std::vector<cif_token> values;   ///< row by row

    std::size_t n_rows() const { return tags.empty() ? 0 : values.size() / tags.size(); }
    const cif_token& at(std::size_t row, std::size_t column) const {
        return values[row * tags.size() + column];
    }
    /// Place of a tag, or -1.
    int column(std::string_view tag) const;
};

struct cif_section {
    std::string name;      ///< `data_x` as it is written, or `global_`
    std::size_t head = 0;  ///< after the name
    std::vector<cif_table> tables;
};

/// The data blocks of a CIF.
std::vector<cif_section> cif_sections(std::string_view text);

/// The text of a value without its quotes.
std::string_view cif_plain(std::string_view text, const cif_token& token);

/// The number of the line of a place, from 1.
int line_of(std::string_view text, std::size_t place);

/// Replacements in a text.
class text_edits {
public:
    void replace(std::size_t begin, std::size_t end, std::string text);
    /// The text with all of them; they mustn't overlap.
    std::string applied_to(std::string_view text);

private:
    struct edit {
        std::size_t begin;
        std::size_t end;
        std::string text;
    };
    std::vector<edit> edits_;
};

}  // namespace lomar
