#include "foundation/mem_limits_3.h"

#include <cstdlib>
#include <new>

#include "foundation/console_text.h"
#include "foundation/platform.h"
#include "foundation/string_out.h"

mem_limits_3::mem_limits_3() { slots.new_n_zero(1); }

std::uint64_t mem_limits_3::working_set_bytes() const {
    std::uint64_t bytes = 0;
    return platform_working_set(bytes) ? bytes : 0;
}

namespace {

const char* gib_text(double bytes) {
    constexpr double gib = 9.313225746154785e-10;
    return format_number("%8.3f", bytes * gib);
}

}  // namespace

void mem_limits_3::check_memory(std::size_t size) {
    slots[0] += size;
    if (slots[0] <= slot_threshold) return;
    total += slots[0];
    slots[0] = 0;
    std::uint64_t sum = total;
    for (const std::uint64_t slot : slots) sum += slot;
    if (sum <= total_threshold) return;
    total = 0;
    for (std::uint64_t& slot : slots) slot = 0;
    const std::uint64_t used = working_set_bytes();
    if (used <= limit_bytes) return;
    string_out report;
    report << "Too much memory used\n";
    report << "\nMemory used (GB) :" << gib_text(static_cast<double>(used));
    report << "\nMaximum usage allowed (GB) :" << gib_text(static_cast<double>(limit_bytes));
    report << "\nPyhsical memory (GB) :" << format_number("%8.3f", physical_gb);
    report << "\n\nIncrease limit in file MaxMem.TXT";
    write_console_text(report.text());
    std::exit(1);
}

mem_limits_3& the_mem_limits() {
    static mem_limits_3& limits = *::new (alloc_block(sizeof(mem_limits_3))) mem_limits_3;
    return limits;
}
