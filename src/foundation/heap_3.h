#pragma once

#include <cstddef>
#include <cstdint>

/// A free block as its bin keeps it: the pointer that the user held, and the heap's stamp at the
/// time when the block came back.
struct heap_entry_3 {
    void* block;
    std::uint64_t stamp;
};

/// The free blocks of one size, as a stack: the block that came back last is handed out first.
struct heap_bin_3 {
    std::int64_t n;            ///< free blocks held
    std::int64_t n_max;        ///< capacity of `entries`
    std::uint64_t block_size;  ///< bytes of every block, the 8 bytes of its header included
    heap_entry_3* entries;
    int index;
};

/// The lower layer of memory: 31 bins of free blocks of fixed sizes. A block is one malloc of its
/// bin's size; its first 8 bytes hold the address of the bin for the block's whole life, and the
/// user's memory begins behind them. A block that comes back stays in its bin until the process
/// ends, so that steady work makes no calls to malloc.
class heap_3 {
public:
    static constexpr int n_bins = 31;
    static constexpr std::size_t header_size = 8;
    static constexpr std::size_t largest_request = (std::size_t{1} << 31) - 16;

    heap_3();
    /// Frees all blocks that are not in use, and sets heap_gone().
    ~heap_3();
    heap_3(const heap_3&) = delete;
    heap_3& operator=(const heap_3&) = delete;

    /// See ::alloc_block. The last block that came back to the bin is reused before any malloc.
    void* alloc_block(std::size_t size);
    /// See ::free_block. Does nothing once the heap is gone.
    void free_block(void* pointer) noexcept;

    /// The number of the smallest bin whose blocks hold `size` bytes and the header; 0 for a size
    /// of 0, and n_bins for a size above largest_request.
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
    /// Gives free blocks back to the system, out of bins that hold more than 1,000,000 bytes: all
    /// of them if `age` is at least 1, else those that came back when the stamp was lower than it
    /// is now less -age.
    void trim(int age);
    /// The bytes of all free blocks.
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
