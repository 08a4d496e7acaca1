#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "formats/setting_list.h"
#include "group/magnetic_group.h"
#include "group/names.h"

// Any bytes are a name, a name of a magnetic group and a word for a list. What is refused is
// refused in one printable line; what is taken is taken back by the name that it gets.

namespace {

void check_message(const std::string& message) {
    if (message.empty() || message.size() > 2000) __builtin_trap();
    for (const char c : message) {
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) __builtin_trap();
    }
}

template <class Action>
void run_or_refuse(Action action) {
    try {
        action();
    } catch (const std::runtime_error& refused) {
        check_message(refused.what());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    run_or_refuse([&] {
        const lomar::named_group found = lomar::resolve_symbol(text);
        const lomar::named_group again = lomar::resolve_symbol(found.group.name);
        if (again.group.operators != found.group.operators) __builtin_trap();
    });
    run_or_refuse([&] { lomar::find_magnetic(text); });
    run_or_refuse([&] { lomar::settings_for({text}); });
    return 0;
}
