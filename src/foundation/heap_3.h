#pragma once

#include <cstddef>
#include <cstdint>

/// A free block as its bin keeps it.
struct heap_entry_3 {
    void* block;          ///< after the header, as alloc_block returned it
    std::uint64_t stamp;  ///< what heap_3::stamp was when it was freed
};

/// The free blocks of one size, as a stack: the block that came back last is handed out first.
struct heap_bin_3 {
    std::int64_t n;            ///< entries in use
    std::int64_t n_max;        ///< entries there is room for
    std::uint64_t block_size;  ///< bytes that malloc gave for each block, so with its header
    heap_entry_3* entries;
    int index;
};

/// The block heap: gives memory in few sizes and keeps what is freed for the next request of the
/// size, so that a program which runs steadily doesn't call malloc any more. Blocks of one size
/// belong to one bin. In front of the memory that the user sees, 8 bytes say which bin that is;
/// they are written when malloc gives the block, and never again.
class heap_3 {
public:
    static constexpr int n_bins = 31;
    static constexpr std::size_t header_size = 8;
    static constexpr std::size_t largest_request = (std::size_t{1} << 31) - 16;

    heap_3();
    /// Gives the blocks in the bins back to the system. After this, heap_gone() is true.
    ~heap_3();
    heap_3(const heap_3&) = delete;
    heap_3& operator=(const heap_3&) = delete;

    /// See ::alloc_block. The last block that came back to the bin is reused before any malloc.
    void* alloc_block(std::size_t size);
    /// See ::free_block. Does nothing once the heap is gone.
    void free_block(void* pointer) noexcept;

    /// The bin that serves a request of `size` bytes: the first with room for them and the header.
    /// No bytes lead to bin 0, more than largest_request to n_bins, which is no bin.
    static int bin_of(std::size_t size);
    /// The size of the blocks of bin `bin`: 2^(bin + 1), but 2^31 - 8 for the last one.
    static std::uint64_t block_size_of(int bin);
    /// How many items of `item_size` bytes the block holds that serves a request of `n_items`.
    static std::int64_t items_in_block(std::int64_t n_items, std::int64_t item_size);
    /// Whether a block would have to move to hold `new_size` bytes, or would fit a smaller bin.
    static bool must_move(const void* pointer, std::size_t new_size);

    const heap_bin_3& bin(int index) const { return bins[index]; }

    /// Blocks that come back from now on are younger than those that came back before.
    void advance_stamp() { ++stamp; }
    /// Returns free blocks to the system; a bin with 1,000,000 bytes of them or less is left alone.
    /// An `age` from 1 up returns them all, a lower one those freed more than -age stamps ago.
    void trim(int age);
    /// How many bytes lie unused in the bins, headers included.
    std::uint64_t stored_bytes() const;

    /// Called with the size before each allocation is served; null while nobody accounts.
    void (*before_alloc)(std::size_t size) = nullptr;

private:
    void release_oldest(heap_bin_3& bin, std::int64_t n) noexcept;

    heap_bin_3* bins;
    std::uint64_t stamp = 0;
};

/// The heap of the process, built at first use and torn down at exit.
heap_3& the_heap();

/// Whether the process's heap has been torn down.
bool heap_gone();
