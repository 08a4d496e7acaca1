#pragma once

#include <string>
#include <string_view>

#include "formats/json.h"

namespace lomar {

/// What the browser shows for a text that was typed or pasted, in these keys:
///
///  - "name": what names just this setting or magnetic group, for further calls;
///  - "title": a line that says what it is; "address": the text for the address bar;
///  - "html": the content of the page, its figures and operators empty; "answer": the JSON of lomar
///  show, identify or magnetic;
///  - "downloads": [{"format", "label"}]; "cell": one that fits the group, or null where there are
///    no reflections; "operators": true where the text was a list of them.
///
/// A text that means nothing gives "message" and "near", names that it may have meant.
json answer_to(std::string_view text);

/// What belongs in an element of that page, for the name and its data-figure: {"html"}. Throws a
/// std::exception with a line for the user.
json figure_for(const std::string& name, const std::string& key);

}  // namespace lomar
