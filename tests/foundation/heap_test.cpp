#include <cstring>
#include <gtest/gtest.h>
#include <new>
#include <vector>

#include "foundation/heap_3.h"
#include "foundation/memory.h"

namespace {

TEST(Heap, SmallestBinThatHoldsARequest) {
    EXPECT_EQ(heap_3::bin_of(0), 0);
    EXPECT_EQ(heap_3::bin_of(1), 3);
    EXPECT_THROW(alloc_block(heap_3::largest_request + 1), std::bad_alloc);
    for (int bin = 3; bin < heap_3::n_bins; ++bin) {
        const std::uint64_t block_size = bin == 30 ? 2147483640 : std::uint64_t{1} << (bin + 1);
        EXPECT_EQ(the_heap().bin(bin).block_size, block_size);
        EXPECT_EQ(heap_3::bin_of(block_size - 8), bin);
        EXPECT_EQ(heap_3::bin_of(block_size - 7), bin + 1);
    }
}

TEST(Heap, LastBlockBackIsFirstOut) {
    for (const std::size_t size : {1U, 24U, 25U, 70000U}) {
        SCOPED_TRACE(size);
        const heap_bin_3& bin = the_heap().bin(heap_3::bin_of(size));
        const std::size_t room = bin.block_size - 8;
        void* a = alloc_block(size);
        void* b = alloc_block(size);
        EXPECT_EQ(reinterpret_cast<std::size_t>(a) % 8, 0U);
        EXPECT_FALSE(heap_3::must_move(a, room));
        EXPECT_TRUE(heap_3::must_move(a, room + 1));
        std::memset(a, 1, room);
        const std::int64_t held = bin.n;
        free_block(a);
        free_block(b);
        free_block(nullptr);
        ASSERT_EQ(bin.n, held + 2);
        EXPECT_EQ(alloc_block(room), b);
        EXPECT_EQ(alloc_block(size), a);
        free_block(a);
        free_block(b);
    }
}

TEST(Heap, StackOfABinGrowsTo16And48And112) {
    const heap_bin_3& bin = the_heap().bin(18);  // a size that nothing else here asks for
    std::vector<void*> blocks(49);
    for (void*& block : blocks) block = alloc_block(524280);
    for (std::size_t i = 0; i < 49; ++i) {
        free_block(blocks[i]);
        EXPECT_EQ(bin.n_max, i < 16 ? 16 : i < 48 ? 48 : 112) << i;
    }
    for (std::size_t i = 0; i < 49; ++i) EXPECT_EQ(bin.entries[i].block, blocks[i]);
}

}  // namespace
