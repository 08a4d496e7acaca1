#pragma once

#include <cstddef>

// The two layers that all dynamic memory comes from. This header only declares them, so that
// containers need not know the heap and the heap need not know the containers.

/// At least `size` usable bytes from the block heap (heap_3.h), aligned to 8 but not to 16.
/// Throws std::bad_alloc when the system has no memory, or when `size` is above 2^31 - 16, the
/// largest block. A size of 0 is served like 1.
void* alloc_block(std::size_t size);

/// Gives a block back to the heap, which keeps it for reuse. A null pointer is ignored.
void free_block(void* pointer) noexcept;

/// A buffer of `size` bytes: up to 72 bytes from the size-class allocators (allocators_4.h), more
/// from the block heap. Sizes count in steps of 4: 5 gets as much as 8.
void* pool_new(int size);

/// Takes back what pool_new gave for this very `size`, which the pool doesn't remember. With 0 it
/// does nothing.
void pool_delete(void* pointer, int size) noexcept;

/// A base without fields for classes of fixed size whose objects come from the pool.
struct pooled_3 {
    static void* operator new(std::size_t size) { return pool_new(static_cast<int>(size)); }
    static void operator delete(void* pointer, std::size_t size) noexcept {
        pool_delete(pointer, static_cast<int>(size));
    }
};
