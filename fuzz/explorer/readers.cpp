#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>

#include "formats/identify_report.h"

// One reader of operators, FUZZED_KIND, on any bytes; then what its operators make. An answer that
// isn't what the operators are ends the program, and so does any failure without a message for the
// user.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace lomar;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    kind_of(text);
    try {
        for (const operator_block& block : read_operators(text, FUZZED_KIND).blocks) {
            if (block.operators.size() < 200) identify_block(block, FUZZED_KIND);
        }
    } catch (const unreadable_input&) {
        return 0;
    }
    return 0;
}
