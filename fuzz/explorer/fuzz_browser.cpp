#include <cstddef>
#include <cstdint>
#include <string>

#include "formats/json.h"
#include "page/browser_calls.h"

// Any bytes are typed into the browser's page: the answer is JSON, with a message or with a content
// and a name that gives the same content again.

namespace {

lomar::json called(const lomar::json& request) {
    return lomar::json::parse(
        lomar::browser_call(request.dump(-1, ' ', false, lomar::json::error_handler_t::replace)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    static_cast<void>(lomar::json::parse(lomar::browser_call(text)));
    const lomar::json answer = called({{"do", "answer"}, {"text", text}});
    if (answer.contains("message") == answer.contains("html")) __builtin_trap();
    if (answer.contains("message")) return 0;
    const lomar::json again = called({{"do", "answer"}, {"text", answer["name"]}});
    if (!again.contains("name") || again["name"] != answer["name"]) __builtin_trap();
    return 0;
}
