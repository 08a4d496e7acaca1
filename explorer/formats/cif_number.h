#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "group/fraction.h"

namespace lomar {

/// A number of a CIF with its standard uncertainty: `0.1234(5)`.
struct cif_number {
    fraction value;
    int decimals = 0;
    double uncertainty = 0;  ///< 0 where there is none
};

/// Nothing for a text that is no such number, exponents included, or has more than 15 digits. A
/// value without uncertainty that is a third or a sixth to all of its decimals, three at least, is
/// taken for that.
std::optional<cif_number> read_cif_number(std::string_view text);

/// Decimal text. Where there is an uncertainty, its size settles the decimals, two digits of it at
/// most; else there are at least `decimals`, and up to six if the value needs them to be exact.
std::string cif_number_text(const fraction& value, int decimals, double uncertainty);
/// The same of a real number, which gets just these decimals where there is no uncertainty.
std::string cif_number_text(double value, int decimals, double uncertainty);

}  // namespace lomar
