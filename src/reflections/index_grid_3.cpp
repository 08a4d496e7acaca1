#include "reflections/index_grid_3.h"

#include <new>

#include "foundation/except_3.h"
#include "foundation/heap_3.h"

void index_grid_3::set_up(const std::int64_t half_width[3]) {
    constexpr std::int64_t largest_index = 1 << 30;
    constexpr std::int64_t most_words = heap_3::largest_request / sizeof(std::uint64_t);
    constexpr char too_large[] = "Index limits too large";
    bits_.clear();
    std::int64_t lengths[3];
    double cells = 1.0;
    for (int i = 0; i < 3; ++i) {
        half_width_[i] = half_width[i];
        if (half_width_[i] > largest_index) fail_with(too_large);
        lengths[i] = 2 * half_width_[i] + 1;
        cells *= static_cast<double>(lengths[i]);
    }
    if (cells > 64.0 * most_words) fail_with(too_large);
    stride_k_ = lengths[2];
    stride_h_ = lengths[1] * lengths[2];
    origin_ = step(half_width_[0], half_width_[1], half_width_[2]);
    try {
        bits_.new_n_zero(static_cast<int>((lengths[0] * stride_h_ + 63) / 64));
    } catch (const std::bad_alloc&) {
        fail_with(too_large);
    }
}
