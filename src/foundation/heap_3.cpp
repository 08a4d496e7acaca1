#include "foundation/heap_3.h"

#include <bit>
#include <cstdlib>
#include <cstring>
#include <new>

#include "foundation/memory.h"
#include "foundation/poison.h"

namespace {

bool heap_torn_down = false;

char* block_start(void* pointer) { return static_cast<char*>(pointer) - heap_3::header_size; }

heap_bin_3* bin_of_block(const void* pointer) {
    heap_bin_3* bin;
    std::memcpy(&bin, static_cast<const char*>(pointer) - heap_3::header_size, sizeof bin);
    return bin;
}

void* malloc_or_throw(std::size_t size) {
    void* memory = std::malloc(size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

void* new_block(heap_bin_3* bin, std::size_t size) {
    char* block = static_cast<char*>(malloc_or_throw(size));
    std::memset(block, 0, heap_3::header_size);
    std::memcpy(block, &bin, sizeof bin);
    return block + heap_3::header_size;
}

}  // namespace

heap_3::heap_3() : bins(static_cast<heap_bin_3*>(malloc_or_throw(n_bins * sizeof(heap_bin_3)))) {
    for (int i = 0; i < n_bins; ++i) bins[i] = {0, 0, block_size_of(i), nullptr, i};
}

heap_3::~heap_3() {
    for (int i = 0; i < n_bins; ++i) {
        release_oldest(bins[i], bins[i].n);
        if (bins[i].n_max != 0) std::free(bins[i].entries);
    }
    std::free(bins);
    heap_torn_down = true;
}

std::uint64_t heap_3::block_size_of(int bin) {
    constexpr int last = n_bins - 1;
    return bin == last ? (std::uint64_t{1} << 31) - 8 : std::uint64_t{1} << (bin + 1);
}

int heap_3::bin_of(std::size_t size) {
    if (size == 0) return 0;
    if (size > largest_request) return n_bins;
    const std::size_t v = size + header_size;
    int bin = static_cast<int>(std::bit_width(v)) - 2;
    if (v > block_size_of(bin)) ++bin;
    if (v > block_size_of(bin)) ++bin;
    return bin;
}

std::int64_t heap_3::items_in_block(std::int64_t n_items, std::int64_t item_size) {
    const int bin = bin_of(static_cast<std::size_t>(n_items * item_size));
    return static_cast<std::int64_t>(block_size_of(bin) - header_size) / item_size;
}

bool heap_3::must_move(const void* pointer, std::size_t new_size) {
    return bin_of_block(pointer)->index != bin_of(new_size);
}

void* heap_3::alloc_block(std::size_t size) {
    if (before_alloc != nullptr && !heap_torn_down) before_alloc(size);
    if (size == 0) size = 1;
    const int index = bin_of(size);
    if (index == n_bins) throw std::bad_alloc();
    if (heap_torn_down) return new_block(nullptr, size + header_size);
    heap_bin_3& bin = bins[index];
    if (bin.n == 0) return new_block(&bin, bin.block_size);
    void* block = bin.entries[--bin.n].block;
    UNPOISON_MEMORY(block, bin.block_size - header_size);
    return block;
}

void heap_3::free_block(void* pointer) noexcept {
    if (pointer == nullptr || heap_torn_down) return;
    heap_bin_3& bin = *bin_of_block(pointer);
    if (bin.n == bin.n_max) {
        const std::int64_t n_max = bin.n_max * 2 + 16;
        void* entries = std::malloc(static_cast<std::size_t>(n_max) * sizeof(heap_entry_3));
        if (entries == nullptr) {  // the bin can't grow: the block is returned to the system
            std::free(block_start(pointer));
            return;
        }
        if (bin.n_max != 0) {
            std::memcpy(entries, bin.entries,
                        static_cast<std::size_t>(bin.n) * sizeof(heap_entry_3));
            std::free(bin.entries);
        }
        bin.entries = static_cast<heap_entry_3*>(entries);
        bin.n_max = n_max;
    }
    POISON_MEMORY(pointer, bin.block_size - header_size);
    bin.entries[bin.n++] = {pointer, stamp};
}

void heap_3::release_oldest(heap_bin_3& bin, std::int64_t n) noexcept {
    for (std::int64_t k = 0; k < n; ++k) {
        UNPOISON_MEMORY(bin.entries[k].block, bin.block_size - header_size);
        std::free(block_start(bin.entries[k].block));
    }
    for (std::int64_t k = n; k < bin.n; ++k) bin.entries[k - n] = bin.entries[k];
    bin.n -= n;
}

void heap_3::trim(int age) {
    constexpr std::uint64_t least_bytes = 1000000;
    if (heap_torn_down) return;
    const std::int64_t cut = static_cast<std::int64_t>(stamp) + age;
    for (int i = 0; i < n_bins; ++i) {
        heap_bin_3& bin = bins[i];
        if (static_cast<std::uint64_t>(bin.n) * bin.block_size <= least_bytes) continue;
        std::int64_t n = 0;
        while (n < bin.n && (age > 0 || static_cast<std::int64_t>(bin.entries[n].stamp) < cut)) ++n;
        release_oldest(bin, n);
    }
}

std::uint64_t heap_3::stored_bytes() const {
    std::uint64_t bytes = 0;
    for (int i = 0; i < n_bins && !heap_torn_down; ++i) {
        bytes += static_cast<std::uint64_t>(bins[i].n) * bins[i].block_size;
    }
    return bytes;
}

heap_3& the_heap() {
    static heap_3 heap;
    return heap;
}

bool heap_gone() { return heap_torn_down; }

void* alloc_block(std::size_t size) { return the_heap().alloc_block(size); }

void free_block(void* pointer) noexcept { the_heap().free_block(pointer); }
