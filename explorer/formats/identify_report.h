#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/identify.h"
#include "analysis/identify_magnetic.h"
#include "formats/json.h"
#include "formats/readers.h"

namespace lomar {

/// What is told of one list of operators.
struct identify_report {
    std::string from;                     ///< the kind of input
    std::string block;                    ///< the CIF's data block; else empty
    std::size_t given = 0;                ///< how many operators were read
    bool completed = false;               ///< whether operators were missing
    std::optional<identification> space;  ///< this one,
    std::optional<magnetic_identification>
        magnetic;                             ///< or this one where time reversal was given,
    std::string failure;                      ///< or why the operators make no group
    std::vector<std::string> contradictions;  ///< names and numbers in the input that are others
};

/// Completes and identifies a block; what is wrong with its operators goes into `failure`. Throws
/// std::logic_error when an answer turns out to be wrong.
identify_report identify_block(const operator_block& block, const std::string& from);

std::string identify_text(const identify_report& report, bool colour);
/// The object of `lomar show` for the setting found, with the keys input, match, transformation and
/// also; of a magnetic group the object of `lomar magnetic`.
json identify_json(const identify_report& report);

}  // namespace lomar
