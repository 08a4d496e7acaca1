#pragma once

#include <cstddef>
#include <cstdint>

#include "foundation/ctr_3.h"

/// A limit on the memory of the process. A program switches it on with read_max_mem; then the bytes
/// that are requested from the heap are counted, and after each GiB of them the system is asked how
/// much memory is in use. Releases don't count.
class mem_limits_3 {
public:
    static constexpr std::uint64_t no_limit = std::uint64_t{1} << 63;

    mem_limits_3();

    /// Reads the limit from the file MaxMem.TXT in the data directory, and switches the limit of
    /// the process on. Two numbers count in the file, and a missing one is 0: a first above 0 is
    /// the limit in GiB; one below 0 is what is to stay free of the physical memory; with a first
    /// of 0 the second is a fraction of the physical memory. Does nothing if a limit is set
    /// already. From then on this object counts all requests, and must not end before the heap.
    /// Fails as any file that can't be opened. (library/max_mem_file.cpp)
    void read_max_mem();

    /// Counts a request. If it completes the next GiB and the process uses more than the limit, a
    /// report goes to the console and the process exits with status 1.
    void check_memory(std::size_t size);

    /// The bytes that the process has in use; 0 if the system doesn't tell.
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
