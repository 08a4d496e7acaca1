#include <algorithm>
#include <bit>
#include <gtest/gtest.h>
#include <random>

#include "foundation/allocators_4.h"
#include "foundation/heap_watch.h"
#include "foundation/memory.h"

namespace {

const struct {
    int item_size, n_request, block_size, items_per_chunk, bitmap_words;
} table[] = {
    {4, 100, 512, 126, 2},  {4, 98, 512, 126, 2},   {8, 96, 1024, 127, 2},  {12, 94, 2048, 170, 3},
    {16, 92, 2048, 127, 2}, {20, 90, 2048, 102, 2}, {24, 88, 4096, 170, 3}, {28, 86, 4096, 146, 3},
    {32, 84, 4096, 127, 2}, {36, 82, 4096, 113, 2}, {40, 80, 4096, 102, 2}, {44, 78, 4096, 92, 2},
    {48, 76, 4096, 85, 2},  {52, 74, 4096, 78, 2},  {56, 72, 4096, 73, 2},  {60, 70, 8192, 136, 3},
    {64, 68, 8192, 127, 2}, {68, 66, 8192, 120, 2}, {72, 64, 8192, 113, 2}};

TEST(Allocators, SizesAndItemsInOrder) {
    ASSERT_EQ(the_allocators().n, 19);
    for (int i = 0; i < 19; ++i) {
        SCOPED_TRACE(i);
        const auto& row = table[i];
        EXPECT_EQ(the_allocators()[i]->item_size, row.item_size);
        EXPECT_EQ(the_allocators()[i]->n_request, row.n_request);
        allocator_4 a(row.item_size, row.n_request);
        EXPECT_EQ(a.items_per_chunk, row.items_per_chunk);
        EXPECT_EQ(a.bitmap_words, row.bitmap_words);
        std::vector<void*> items;
        for (int k = 0; k < row.items_per_chunk; ++k) {
            items.push_back(a.allocate());
            ASSERT_EQ(items.back(), a.chunks[0]->storage + k * row.item_size);
        }
        EXPECT_FALSE(heap_3::must_move(items[0], static_cast<std::size_t>(row.block_size) - 8));
        a.release(items[64]);
        EXPECT_EQ(a.chunks[0]->bitmap[1] & 1, 0U);
        EXPECT_EQ(a.allocate(), items[64]);
        items.push_back(a.allocate());
        EXPECT_EQ(a.chunks.n, 2);
        for (void* item : items) a.release(item);
        EXPECT_EQ(a.chunks.n + a.free_chunks.n, 0);
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
        SCOPED_TRACE(size);
        const allocator_4& a = *the_allocators()[number];
        const int before = items_in_use(a);
        void* item = pool_new(size);
        EXPECT_EQ(items_in_use(a), before + (number == 0 ? 0 : 1));
        pool_delete(item, size);
        EXPECT_EQ(items_in_use(a), before);
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
    std::sort(items.begin(), items.end());
    EXPECT_EQ(std::unique(items.begin(), items.end()), items.end());
    for (char* item : items) a.release(item);
    EXPECT_EQ(a.chunks.n, 0);
}

}  // namespace
