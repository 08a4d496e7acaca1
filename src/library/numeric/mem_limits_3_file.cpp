#include <cmath>
#include <limits>

#include "foundation/heap_3.h"
#include "foundation/mem_limits_3.h"
#include "foundation/platform.h"
#include "textin/data_dir.h"
#include "textin/file_in.h"

namespace {

constexpr double gib_size = 1073741824.0;
constexpr double physical_gb_unless_known = 4.0;

mem_limits_3* counted = nullptr;  // the object that counts the requests

// What is no number counts as 0.
double read_limit_number(file_in& file) {
    const double value = file.read_double();
    return std::isnan(value) ? 0.0 : value;
}

double physical_memory_gb() {
    std::uint64_t kilobytes = 0;
    if (!platform_physical_memory(kilobytes)) return physical_gb_unless_known;
    return static_cast<double>(kilobytes) * 1024.0 / gib_size;
}

// Bytes without their fraction; the nearest number of 64 bits where none fits.
std::uint64_t whole_bytes(double bytes) {
    constexpr double beyond = 18446744073709551616.0;
    if (bytes >= beyond) return std::numeric_limits<std::uint64_t>::max();
    return bytes > 0.0 ? static_cast<std::uint64_t>(bytes) : 0;
}

}  // namespace

void mem_limits_3::read_max_mem() {
    if (limit_bytes != no_limit) return;
    file_in file(data_path("MaxMem.TXT"), file_in::data_file);
    const double first = read_limit_number(file);
    const double second = read_limit_number(file);
    physical_gb = physical_memory_gb();
    if (first > 0.0) {
        max_gb = first;
    } else if (first < 0.0) {
        max_gb = physical_gb + first;
    } else {
        max_gb = physical_gb * second;
    }
    limit_bytes = whole_bytes(max_gb * gib_size);
    slot_threshold = 0x40000000;
    total_threshold = 0x20000000;
    counted = this;
    the_heap().before_alloc = [](std::size_t size) { counted->check_memory(size); };
}
