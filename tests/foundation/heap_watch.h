#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <new>

#include "foundation/heap_3.h"

/// Whether `step` gets through while its request number `failing` to the heap, counted from 1,
/// finds no memory.
template <typename Step>
bool survives(std::size_t failing, Step step) {
    static std::size_t left;
    left = failing;
    the_heap().before_alloc = [](std::size_t) {
        if (left-- == 1) throw std::bad_alloc();
    };
    bool complete = true;
    try {
        step();
    } catch (const std::bad_alloc&) {
        complete = false;
    }
    the_heap().before_alloc = nullptr;
    return complete;
}

/// The number of free blocks in each bin: work that leaves nothing behind doesn't change them when
/// it is done once more.
inline auto free_blocks() {
    std::array<std::int64_t, heap_3::n_bins> counts{};
    for (int i = 0; std::int64_t & count : counts) count = the_heap().bin(i++).n;
    return counts;
}

/// Runs work(failing) for failing = 1, 2, 3... until it says that it got through. Gives the number
/// of failures, or -1 if a block got lost.
template <typename Work>
int fail_each_request(Work work) {
    work(0);  // fills the bins
    const auto before = free_blocks();
    int failures = 0;
    while (!work(static_cast<std::size_t>(failures) + 1)) ++failures;
    return free_blocks() == before ? failures : -1;
}
