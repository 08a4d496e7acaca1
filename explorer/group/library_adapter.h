#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "group/symop.h"

namespace lomar {

// The one place where the library's lists, and the failures that it throws as pointers, become
// ordinary values. Nothing else of the explorer touches them.

/// What the library makes of a name of the catalogue.
struct library_group {
    std::vector<symop> representatives;     ///< without centring; the identity first
    std::vector<fraction_vector> centring;  ///< the null vector first
};

/// A name of the catalogue, in the form that it has there.
struct library_name {
    int number = 0;  ///< of the group
    std::string key;
    std::string main_name;  ///< the first name of the same setting
};

/// Decodes the group of a name of the catalogue, in the catalogue's form. Throws
/// std::runtime_error with the library's message when it has none such.
library_group operators_of_name(const std::string& key);

/// Looks for a name in the catalogue's form.
std::optional<library_name> find_library_name(const std::string& key);

/// All names, in the order of the catalogue.
std::vector<library_name> library_names();

/// The first `count` operators of a text that has one in a line, with time reversal after a third
/// comma: `-x,y,z+1/2,-1`. Translations come in [0, 1). Throws std::runtime_error for anything
/// else.
std::vector<symop> operators_of_lines(std::string_view lines, int count);

/// The vectors of a lattice, one of PABCIFR in either case, the null vector first. Throws
/// std::runtime_error for another letter.
std::vector<fraction_vector> centring_of_letter(char letter);

/// The very bytes of the .sg file that lomar6 makes of a name of the catalogue. Throws as
/// operators_of_name.
std::string sg_file_text(const std::string& key);

}  // namespace lomar
