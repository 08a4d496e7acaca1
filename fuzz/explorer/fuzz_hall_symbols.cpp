#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "group/hall_symbol.h"

// A Hall symbol that is taken gives a group: with two operators it has their product.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), std::min<std::size_t>(size, 200));
    try {
        const lomar::hall_group group = lomar::decode_hall(text);
        if (group.operators.empty() || group.operators[0] != lomar::symop()) __builtin_trap();
        if (group.operators.size() % group.centring.size() != 0) __builtin_trap();
        const lomar::symop product =
            group.operators.back() * group.operators[size % 7 % group.operators.size()];
        if (std::ranges::find(group.operators, modulo_lattice(product)) == group.operators.end()) {
            __builtin_trap();
        }
    } catch (const lomar::unknown_symbol&) {}
    return 0;
}
