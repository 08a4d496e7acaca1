#include <algorithm>
#include <bit>
#include <gtest/gtest.h>
#include <random>
#include <set>

#include "foundation/allocators_4.h"
#include "foundation/heap_watch.h"
#include "foundation/memory.h"

namespace {

// What fits the heap's block for 100 items of 4 bytes, 98 of 4, 96 of 8, 94 of 12 and so on.
constexpr int items_per_chunk[] = {126, 126, 127, 170, 127, 102, 170, 146, 127, 113,
                                   102, 92,  85,  78,  73,  136, 127, 120, 113};

TEST(Allocators, SizesAndItemsInOrder) {
    ASSERT_EQ(the_allocators().n, 19);
    for (int i = 0; i < 19; ++i) {
        SCOPED_TRACE(i);
        const int item_size = std::max(4, 4 * i);
        EXPECT_EQ(the_allocators()[i]->item_size, item_size);
        EXPECT_EQ(the_allocators()[i]->n_request, 100 - 2 * i);
        allocator_4 a(item_size, 100 - 2 * i);
        EXPECT_EQ(a.bitmap_words, items_per_chunk[i] > 128 ? 3 : 2);
        std::vector<void*> items;
        for (int k = 0; k < items_per_chunk[i]; ++k) {
            items.push_back(a.allocate());
            ASSERT_EQ(items.back(), a.chunks[0]->storage + k * item_size);
        }
        a.release(items[64]);
        EXPECT_EQ(a.allocate(), items[64]);
        items.push_back(a.allocate());
        EXPECT_EQ(a.chunks.n, 2);
        for (void* item : items) a.release(item);
    }
}

int items_in_use(const allocator_4& a) {
    int total = 0;
    for (const chunk_4* chunk : a.chunks) total += chunk->n_used;
    return total;
}

TEST(Allocators, SizesChooseTheAllocator) {
    const int rows[][2] = {{1, 1}, {4, 1}, {5, 2}, {72, 18}, {73, 0}};  // size, allocator or none
    for (const auto& [size, number] : rows) {
        const allocator_4& a = *the_allocators()[number];
        const int before = items_in_use(a);
        void* item = pool_new(size);
        EXPECT_EQ(items_in_use(a), before + (number == 0 ? 0 : 1)) << size;
        pool_delete(item, size);
        EXPECT_EQ(items_in_use(a), before) << size;
    }
    EXPECT_THROW(pool_new(std::numeric_limits<int>::max()), std::bad_alloc);
}

TEST(Allocators, RandomUseKeepsChunksSound) {
    std::mt19937 random(1);
    allocator_4 a(56, 72);
    std::vector<char*> items;
    const auto expect_sound = [&] {
        ASSERT_EQ(items_in_use(a), static_cast<int>(items.size()));
        int not_full = 0;
        for (int i = 0; i < a.chunks.n; ++i) {
            const chunk_4& chunk = *a.chunks[i];
            ASSERT_TRUE(i == 0 || a.chunks[i - 1]->storage < chunk.storage);
            ASSERT_EQ(std::popcount(chunk.bitmap[0]) + std::popcount(chunk.bitmap[1]),
                      chunk.n_used);
            ASSERT_GE(chunk.n_used, 1);
            const bool full = chunk.n_used == a.items_per_chunk;
            not_full += full ? 0 : 1;
            ASSERT_EQ(a.free_chunks.find(a.chunks[i]) == not_found, full);
        }
        ASSERT_EQ(a.free_chunks.n, not_full);
    };
    for (int step = 0; step < 9000; ++step) {
        if (items.empty() || random() % 8 < (step < 3000 ? 7 : 3)) {
            // a new item that may fail leaves everything as it was
            survives(1 + random() % 5, [&] { items.push_back(static_cast<char*>(a.allocate())); });
        } else {
            std::swap(items[random() % items.size()], items.back());
            ASSERT_TRUE(survives(1, [&] { a.release(items.back()); }));  // needs no memory
            items.pop_back();
        }
        if (step % 10 == 0) expect_sound();
        if (testing::Test::HasFailure()) return;
    }
    EXPECT_EQ(std::set<char*>(items.begin(), items.end()).size(), items.size());
    for (char* item : items) a.release(item);
    EXPECT_EQ(a.chunks.n, 0);
}

}  // namespace
