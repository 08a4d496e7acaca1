#include "page/browser_calls.h"

#include <stdexcept>

#include "drawing/diagram.h"
#include "page/browser_answer.h"
#include "page/browser_downloads.h"
#include "page/browser_reflections.h"

namespace lomar {

namespace {

// Bytes that are no UTF-8 become U+FFFD.
std::string written(const json& value) {
    return value.dump(-1, ' ', false, json::error_handler_t::replace);
}

json answer_of(const json& request) {
    const std::string what = request.at("do").get<std::string>();
    if (what == "answer") {
        json result = answer_to(request.at("text").get<std::string>());
        // As lomar would print it: the page keeps and saves this text.
        if (result.contains("answer")) result["answer"] = json_text(result["answer"]);
        return result;
    }
    if (what == "download") {
        return download(request.at("name").get<std::string>(),
                        request.at("format").get<std::string>());
    }
    if (what == "figure") {
        return figure_for(request.at("name").get<std::string>(),
                          request.at("figure").get<std::string>());
    }
    if (what == "reflections") return reflections_for(request);
    if (what == "start") return {{"style", diagram_style()}, {"version", LOMAR_VERSION}};
    throw std::invalid_argument("there is no such request");
}

}  // namespace

std::string browser_call(std::string_view request) noexcept {
    try {
        return written(answer_of(json::parse(request)));
    } catch (const std::bad_alloc&) {
        return "{\"message\": \"out of memory\"}";
    } catch (const std::exception& failure) {
        return written({{"message", failure.what()}});
    }
}

}  // namespace lomar
