#pragma once

#include <cstddef>
#include <cstdint>

#include "foundation/ctr_3.h"

/// Ends a process that takes too much memory. It does nothing until read_max_mem is called; then
/// it adds up the bytes of all requests to the heap, without deducting what is freed, and asks the
/// system for the memory in use after each GiB.
class mem_limits_3 {
public:
    static constexpr std::uint64_t no_limit = std::uint64_t{1} << 63;

    mem_limits_3();

    /// Reads the limit from the file MaxMem.TXT in the data directory, and switches the limit of
    /// the process on. Two numbers count in the file, and a missing one is 0: the first is the
    /// limit in GiB, or with a minus the GiB that others shall have of the physical memory; if it
    /// is 0, the second is the limit as a fraction of the physical memory. A second call changes
    /// nothing. From then on this object counts all requests, and must not end before the heap.
    /// Fails as any file that can't be opened. (library/numeric/mem_limits_3_file.cpp)
    void read_max_mem();

    /// Counts a request. If it completes the next GiB and the process uses more than the limit, a
    /// report is written to the console and the process exits with status 1.
    void check_memory(std::size_t size);

    /// The bytes that the process has in use; 0 if the system doesn't say.
    std::uint64_t working_set_bytes() const;

    double max_gb = 0.0;  ///< the limit in GiB
    double physical_gb = 0.0;
    std::uint64_t limit_bytes = no_limit;
    std::uint64_t slot_threshold = no_limit;  ///< a slot beyond this is carried over to `total`
    std::uint64_t total = 0;
    std::uint64_t total_threshold = 0;  ///< a total beyond this asks the system
    list_0_3<std::uint64_t> slots;      ///< one counter of bytes requested
};

/// The limit of the process, built at first use and never destroyed.
mem_limits_3& the_mem_limits();
