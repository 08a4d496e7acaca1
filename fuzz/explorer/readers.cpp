#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>

#include "formats/identify_report.h"

extern const char* const fuzzed_kind;

// The reader of one kind of operators on any bytes; then what its operators make. An answer that
// isn't what the operators are ends the program, and so does any failure without a message for the
// user.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace lomar;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    kind_of(text);
    try {
        for (const operator_block& block : read_operators(text, fuzzed_kind).blocks) {
            if (block.operators.size() < 200) identify_block(block, fuzzed_kind);
        }
    } catch (const unreadable_input&) {
        return 0;
    }
    return 0;
}
