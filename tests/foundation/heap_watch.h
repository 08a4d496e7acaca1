#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <new>
#include <vector>

#include "foundation/heap_3.h"

/// Records the requests to the process's heap while it lives; request number `failing`, counted
/// from 1, finds no memory.
struct heap_watch {
    static inline std::vector<std::size_t> requests;
    static inline std::size_t fail_at = 0;

    explicit heap_watch(std::size_t failing = 0) {
        fail_at = failing;
        requests.clear();
        the_heap().before_alloc = [](std::size_t size) {
            requests.push_back(size);
            if (requests.size() == fail_at) throw std::bad_alloc();
        };
    }
    ~heap_watch() { the_heap().before_alloc = nullptr; }
};

/// Whether `step` gets through while its request number `failing` finds no memory.
template <typename Step>
bool survives(std::size_t failing, Step step) {
    const heap_watch watch(failing);
    try {
        step();
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

/// The number of free blocks in each bin. Work that was done before and leaves nothing behind
/// leaves these numbers as they were.
inline auto free_blocks() {
    std::array<std::int64_t, heap_3::n_bins> counts{};
    for (std::size_t i = 0; i < counts.size(); ++i)
        counts[i] = the_heap().bin(static_cast<int>(i)).n;
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
