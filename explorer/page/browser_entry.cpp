#include <emscripten/emscripten.h>
#include <string>

#include "page/browser_calls.h"

/// The one function that the script calls; the answer stays until the next call.
extern "C" EMSCRIPTEN_KEEPALIVE const char* lomar_call(const char* request) {
    static std::string answer;
    answer = lomar::browser_call(request);
    return answer.c_str();
}
