#pragma once

#include <string>
#include <string_view>

namespace lomar {

/// What the script of the browser's page calls: a request as JSON gets an answer as JSON.
///
///     {"do": "start"}                                  {"style", "version"}
///     {"do": "answer", "text"}                         browser_answer.h
///     {"do": "figure", "name", "figure"}               likewise
///     {"do": "download", "name", "format"}             browser_downloads.h
///     {"do": "reflections", "name", ...}               browser_reflections.h
///
/// What can't be done is {"message"}, a line for the user. Nothing is thrown.
std::string browser_call(std::string_view request) noexcept;

}  // namespace lomar
