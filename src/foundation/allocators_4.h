#pragma once

#include <cstdint>

#include "foundation/ctr_3.h"

class allocator_4;

/// A large block cut into items of one size, with one bit for each item: set means in use.
/// A chunk exists only while at least one of its items is in use.
struct chunk_4 {
    std::uint64_t* bitmap;  ///< bit k of word w stands for item 64 * w + k
    allocator_4* owner;
    char* storage;  ///< item i lies at storage + i * item_size
    int n_used;
};

/// Serves items of one size out of chunks. An item costs a look at a stack and the scan of a few
/// words; the block of a chunk goes back to the heap with its last item.
class allocator_4 {
public:
    /// Items of `item_size_` bytes; chunks are requested for `n_request_` items and hold as many
    /// as fit the heap block that serves that request.
    allocator_4(std::int64_t item_size_, std::int64_t n_request_);
    allocator_4(const allocator_4&) = delete;
    allocator_4& operator=(const allocator_4&) = delete;

    /// The address of a free item. Throws std::bad_alloc when the system has no memory.
    virtual void* allocate();
    /// Takes an item back. The pointer must be one that allocate() gave and that is still in use.
    virtual void release(void* pointer) noexcept;

    list_0_3<chunk_4*> chunks;       ///< ascending by storage address
    list_0_3<chunk_4*> free_chunks;  ///< a stack of the chunks that have a free item
    std::int64_t item_size;
    std::int64_t last_offset;  ///< offset of the last item of a chunk
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

/// The table of allocators: entry i serves items of 4 * i bytes, up to 72; entry 0 exists so that
/// the index is the size divided by 4.
class allocators_4 : public list_n1_3<allocator_4*> {
public:
    static constexpr int largest_item = 72;
    allocators_4();
};

/// The table of the process, built at first use and never destroyed.
allocators_4& the_allocators();
