#pragma once

#include <string>
#include <vector>

#include "group/settings.h"

namespace lomar {

/// The form of a setting's own name() in the catalogue: small letters, no blanks and brackets, `:2`
/// for origin choice 2, `r` for rhombohedral axes.
std::string own_key(const setting& row);

/// The symbol of a monoclinic setting without its 1s, in the same form.
std::string short_key(const setting& row);

/// The setting that a name of the catalogue, in the catalogue's form, means to lomar6; null if it
/// has none such. Of settings with the very same operators it is the one whose own name it is.
const setting* find_catalogue_name(const std::string& key);

/// A name of the catalogue and its setting.
struct catalogue_name {
    std::string key;
    const setting* row;
};

/// All names of the catalogue, in its order.
std::vector<catalogue_name> catalogue_names();

}  // namespace lomar
