#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "analysis/completion.h"
#include "formats/operator_text.h"

namespace lomar {

/// A list of operators in some input, and what the input says of their group.
struct operator_block {
    std::string name;  ///< of a CIF's data block, as `data_x` has it; else empty
    int line = 0;      ///< where it begins
    std::vector<given_operator> operators;
    std::string symbol;      ///< Hermann-Mauguin; empty if there is none
    std::string hall;        ///< likewise
    std::string bns_symbol;  ///< likewise, for a magnetic group
    std::string bns_number;
    int number = 0;         ///< 1 to 230; 0 if there is none
    bool magnetic = false;  ///< whether time reversal was written, even where it is 1 throughout
};

/// What was read.
struct operator_input {
    std::string from;  ///< the kind: a word of input_kinds()
    std::vector<operator_block> blocks;
};

/// The words for the kinds of input: xyz, cif, shelx, sg, generators, json.
std::vector<std::string> input_kinds();
/// The kind that a text seems to have.
std::string kind_of(std::string_view text);
/// Reads a text of the kind, or of the one that it seems to have for an empty one. No block is
/// without operators. Throws unreadable_input, also for more than 100000 operators.
operator_input read_operators(std::string_view text, std::string_view kind = {});

// The readers of each kind. Each throws unreadable_input.

/// One operator a line, or several with `;` or numbers such as `(2)` between them. A `#` and what
/// follows is a comment.
std::vector<operator_block> read_xyz(std::string_view text);
/// Every data block that has operators, under the names of either kind; those of magnetic CIF too.
std::vector<operator_block> read_cif_operators(std::string_view text);
/// The LATT and SYMM cards, with all operators that they stand for: the identity, the inversion if
/// LATT is positive, centring.
std::vector<operator_block> read_shelx(std::string_view text);
/// The xyzs of a .sg file, and the number and symbol that it gives: docs/sg_file.md.
std::vector<operator_block> read_sg(std::string_view text);
/// The block of generators: docs/generator_file.md. What lomar6 would read as one operator across
/// a line end is refused.
std::vector<operator_block> read_generators(std::string_view text);
/// The JSON of `lomar show` or `identify`, also an array of those, or an array of texts.
std::vector<operator_block> read_json(std::string_view text);

/// Adds an operator. Throws unreadable_input beyond 100000 in one block.
void add_operator(operator_block& block, const given_operator& op);

}  // namespace lomar
