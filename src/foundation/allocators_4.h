#pragma once

#include <cstdint>

#include "foundation/ctr_3.h"

class allocator_4;

/// A heap block divided into equal items. It is created for an item and released with the last one,
/// so `n_used` is never 0.
struct chunk_4 {
    std::uint64_t* bitmap;  ///< a bit for each item, lowest bits first, 1 while it is handed out
    allocator_4* owner;
    char* storage;  ///< the items, one after the other
    int n_used;
};

/// Hands out items of a single size. The chunk is known at once, and the free place in it is found
/// in a bitmap of two or three words.
class allocator_4 {
public:
    /// Items of `item_size_` bytes; chunks are requested for `n_request_` items and hold as many
    /// as fit the heap block that serves that request.
    allocator_4(std::int64_t item_size_, std::int64_t n_request_);
    allocator_4(const allocator_4&) = delete;
    allocator_4& operator=(const allocator_4&) = delete;

    /// An item with undefined contents. Throws std::bad_alloc when the system has no memory.
    virtual void* allocate();
    /// Takes an item back. The pointer must be one that allocate() gave and that is still in use.
    virtual void release(void* pointer) noexcept;

    list_0_3<chunk_4*> chunks;       ///< all of them, lowest storage address first
    list_0_3<chunk_4*> free_chunks;  ///< those that aren't full; the last one serves next
    std::int64_t item_size;
    std::int64_t last_offset;  ///< bytes from the first item of a chunk to its last
    std::int64_t items_per_chunk;
    std::int64_t bitmap_words;
    std::int64_t n_request;

private:
    void* allocate_in_new_chunk();
    int chunk_position(const chunk_4* chunk) const;
    int chunk_of(const void* pointer) const;
    bool holds(const chunk_4* chunk, const void* pointer) const;
    void drop_chunk(int position) noexcept;
};

/// One allocator for each size from 4 to 72 bytes in steps of 4, found by size / 4. A
/// request for no bytes finds entry 0, which is like entry 1.
class allocators_4 : public list_n1_3<allocator_4*> {
public:
    static constexpr int largest_item = 72;
    allocators_4();
};

/// The table of the process, built at first use and never destroyed.
allocators_4& the_allocators();
