#include "foundation/allocators_4.h"

#include <bit>
#include <cstdlib>
#include <new>

#include "foundation/heap_3.h"
#include "foundation/memory.h"
#include "foundation/poison.h"

namespace {

constexpr int n_allocators = allocators_4::largest_item / 4 + 1;

// Objects of the allocator's own come from the heap, never from the pool that they make up.
template <typename T, typename... Arguments>
T* new_in_block(Arguments... arguments) {
    return ::new (alloc_block(sizeof(T))) T(arguments...);
}

std::size_t rounded_size(int size) {
    return (static_cast<std::size_t>(size) + 3) & ~std::size_t{3};
}

allocator_4& allocator_of(std::size_t size) {
    return *the_allocators()[static_cast<int>(size / 4)];
}

}  // namespace

allocator_4::allocator_4(std::int64_t item_size_, std::int64_t n_request_)
    : item_size(item_size_), n_request(n_request_) {
    items_per_chunk = heap_3::items_in_block(n_request, item_size);
    last_offset = (items_per_chunk - 1) * item_size;
    bitmap_words = (items_per_chunk + 63) / 64;
}

void* allocator_4::allocate() {
    if (free_chunks.n == 0) return allocate_in_new_chunk();
    chunk_4* chunk = free_chunks[free_chunks.n - 1];
    if (++chunk->n_used == items_per_chunk) --free_chunks.n;
    int word = 0;
    while (chunk->bitmap[word] == ~std::uint64_t{0}) ++word;
    const int bit = std::countr_one(chunk->bitmap[word]);
    chunk->bitmap[word] |= std::uint64_t{1} << bit;
    char* item = chunk->storage + (64 * word + bit) * item_size;
    UNPOISON_MEMORY(item, static_cast<std::size_t>(item_size));
    return item;
}

void* allocator_4::allocate_in_new_chunk() {
    // Room in both lists first, so that nothing can fail once the chunk exists, nor in release().
    if (chunks.n == chunks.n_max) chunks.set_max_n(chunks.grown(chunks.n), true);
    if (free_chunks.n_max < chunks.n_max) free_chunks.set_max_n(chunks.n_max, true);
    chunk_4* chunk = static_cast<chunk_4*>(alloc_block(sizeof(chunk_4)));
    void* bitmap = std::calloc(static_cast<std::size_t>(bitmap_words), sizeof(std::uint64_t));
    if (bitmap == nullptr) {
        free_block(chunk);
        throw std::bad_alloc();
    }
    try {
        void* storage = alloc_block(static_cast<std::size_t>(n_request * item_size));
        *chunk = {static_cast<std::uint64_t*>(bitmap), this, static_cast<char*>(storage), 1};
    } catch (...) {
        std::free(bitmap);
        free_block(chunk);
        throw;
    }
    chunk->bitmap[0] = 1;
    POISON_MEMORY(chunk->storage + item_size, static_cast<std::size_t>(last_offset));
    chunks.insert_at(chunk, chunk_position(chunk));
    free_chunks.add(chunk);
    return chunk->storage;
}

int allocator_4::chunk_position(const chunk_4* chunk) const {
    if (chunks.n == 0 || chunk->storage <= chunks[0]->storage) return 0;
    if (chunks[chunks.n - 1]->storage < chunk->storage) return chunks.n;
    int low = 0;
    int high = chunks.n - 1;
    while (high - low > 1) {
        const int mid = (low + high) / 2;
        (chunks[mid]->storage < chunk->storage ? low : high) = mid;
    }
    return high;
}

bool allocator_4::holds(const chunk_4* chunk, const void* pointer) const {
    return chunk->storage <= pointer && pointer <= chunk->storage + last_offset;
}

int allocator_4::chunk_of(const void* pointer) const {
    int low = 0;
    int high = chunks.n - 1;
    while (high - low > 1) {
        const int mid = (low + high) / 2;
        if (chunks[mid]->storage + last_offset < pointer) {
            low = mid + 1;
        } else {
            high = mid;
        }
    }
    return holds(chunks[high], pointer) ? high : low;
}

void allocator_4::release(void* pointer) noexcept {
    const int position = chunk_of(pointer);
    chunk_4* chunk = chunks[position];
    if (chunk->n_used == 1) return drop_chunk(position);
    if (chunk->n_used == items_per_chunk) free_chunks.add(chunk);
    --chunk->n_used;
    const std::int64_t item = (static_cast<char*>(pointer) - chunk->storage) / item_size;
    chunk->bitmap[item / 64] &= ~(std::uint64_t{1} << (item % 64));
    POISON_MEMORY(pointer, static_cast<std::size_t>(item_size));
}

void allocator_4::drop_chunk(int position) noexcept {
    chunk_4* chunk = chunks[position];
    UNPOISON_MEMORY(chunk->storage, static_cast<std::size_t>(last_offset + item_size));
    free_block(chunk->storage);
    std::free(chunk->bitmap);
    const int place = free_chunks.find(chunk);
    if (place != not_found) free_chunks.remove_at(place);
    chunks.remove_at(position);
    free_block(chunk);
}

allocators_4::allocators_4() {
    set_max_n(n_allocators, false);
    add(new_in_block<allocator_4>(4, 100));
    for (int i = 1; i < n_allocators; ++i) {
        add(new_in_block<allocator_4>(4 * i, 100 - 2 * i));
    }
}

allocators_4& the_allocators() {
    static allocators_4& table = *new_in_block<allocators_4>();
    return table;
}

void* pool_new(int size) {
    const std::size_t rounded = rounded_size(size);
    if (rounded <= allocators_4::largest_item) return allocator_of(rounded).allocate();
    return alloc_block(rounded);
}

void pool_delete(void* pointer, int size) noexcept {
    if (size == 0) return;
    const std::size_t rounded = rounded_size(size);
    if (rounded <= allocators_4::largest_item) {
        allocator_of(rounded).release(pointer);
    } else {
        free_block(pointer);
    }
}
