#include "foundation/mem_limits_3.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <vector>

#include "foundation/allocators_4.h"
#include "foundation/heap_3.h"
#include "foundation/memory_reports.h"
#include "foundation/platform.h"
#include "support/expect_failure.h"
#include "support/operators.h"
#include "support/scratch_dir.h"
#include "textin/data_dir.h"
#include "textout/console.h"

namespace {

constexpr std::uint64_t gib = std::uint64_t{1} << 30;

void free_blocks(int n, std::size_t size) {
    std::vector<void*> blocks;
    for (int i = 0; i < n; ++i) blocks.push_back(alloc_block(size));
    for (void* block : blocks) free_block(block);
}

struct MemLimits : testing::Test {
    ~MemLimits() override {
        the_heap().before_alloc = nullptr;
        data_dir() = "";
    }
    scratch_dir dir;
};

TEST_F(MemLimits, FromTheFile) {
    std::uint64_t kilobytes = 0;
    ASSERT_TRUE(platform_physical_memory(kilobytes));
    const double physical = static_cast<double>(kilobytes) / (1 << 20);
    constexpr std::uint64_t most = ~std::uint64_t{0};
    const auto bytes = [](double gb) { return static_cast<std::uint64_t>(gb * gib); };
    const struct {
        const char* text;
        std::uint64_t limit;
    } rows[] = {{"\t\r\n 2.5\r\n1 3 junk", 5 * gib / 2},
                {"-0.125 0", bytes(physical - 0.125)},
                {"", 0},
                {"many 0.25", bytes(physical * 0.25)},
                {"nan 1", bytes(physical)},
                {"/* 9 */ 3 '7", 3 * gib},
                {"-inf", 0},
                {"17179869184", most},
                {"1e999", most},
                {"0.000000001", 1}};
    EXPECT_FAILURE(mem_limits_3().read_max_mem(), " Cannot open file MaxMem.TXT");
    write_file("MaxMem.TXT", "3 /* GiB");
    EXPECT_FAILURE(mem_limits_3().read_max_mem(), " Unclosed comment block");
    EXPECT_EQ(the_heap().before_alloc, nullptr);
    std::filesystem::create_directory("data");
    const std::string prefix = std::string("data") + platform_separator;
    data_dir() = prefix.c_str();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        the_heap().before_alloc = nullptr;  // which the object of the row before left behind
        write_file(prefix + "MaxMem.TXT", row.text);
        mem_limits_3 limits;
        limits.read_max_mem();
        EXPECT_EQ(limits.limit_bytes, row.limit);
        EXPECT_EQ(limits.physical_gb, physical);
        const std::uint64_t counted = limits.slots[0];
        free_blocks(3, 1000);
        EXPECT_EQ(limits.slots[0], counted + 3000) << "this object counts";
        write_file(prefix + "MaxMem.TXT", "3");
        limits.read_max_mem();
        EXPECT_EQ(limits.limit_bytes, row.limit) << "set already";
    }
}

TEST_F(MemLimits, CountsWhatIsRequested) {
    mem_limits_3 limits;
    limits.limit_bytes = ~std::uint64_t{0};
    limits.slot_threshold = 100;
    limits.total_threshold = 250;
    const struct {
        std::size_t size;
        std::uint64_t slot;
        std::uint64_t total;
    } rows[] = {{100, 100, 0}, {1, 0, 101}, {101, 0, 202}, {48, 48, 202}, {53, 0, 0}, {5, 5, 0}};
    for (const auto& row : rows) {
        limits.check_memory(row.size);
        EXPECT_EQ(limits.slots[0], row.slot);
        EXPECT_EQ(limits.total, row.total);
    }
    EXPECT_GT(limits.working_set_bytes(), 100000U);
    EXPECT_LT(limits.working_set_bytes(), std::uint64_t{1} << 50);
}

// Keeps what is written to the console in memory that doesn't come from the heap, or passes it on
// to where a test of an exit finds it, each piece between angles.
struct captured_console : stream_out {
    explicit captured_console(bool passes_on_ = false) : passes_on(passes_on_) {
        push_console_stream(*this);
    }
    ~captured_console() override { pop_console_stream(); }
    using stream_out::operator<<;
    stream_out& operator<<(const char* piece) override {
        text += piece;
        if (passes_on) std::fprintf(stderr, "<%s>", piece);
        return *this;
    }
    bool passes_on;
    std::string text;
};

void exceed_limit() {
    const captured_console console(true);
    mem_limits_3 limits;
    limits.limit_bytes = 1 << 20;
    limits.physical_gb = 12.3456;
    limits.slot_threshold = 0;
    limits.check_memory(1);
}

void request_more_than_a_gib() {
    the_mem_limits().read_max_mem();
    for (int i = 0; i < 1025; ++i) free_blocks(1, 1 << 20);
}

TEST_F(MemLimits, EndsTheProcess) {
    const testing::ExitedWithCode ended(1);
    EXPECT_EXIT(
        exceed_limit(), ended,
        "<Too much memory used\n\nMemory used \\(GB\\) :....\\....\n"
        "Maximum usage allowed \\(GB\\) :   0\\.001\nPyhsical memory \\(GB\\) :  12\\.346\n\n"
        "Increase limit in file MaxMem\\.TXT>");
    write_file("MaxMem.TXT", "0");
    EXPECT_EXIT(request_more_than_a_gib(), ended, "");
}

// Blocks of 1 MiB, so large that one of them is worth trimming.
constexpr std::size_t large = 1000000;
const heap_bin_3& large_bin() { return the_heap().bin(19); }

TEST(HeapTrim, ByAge) {
    the_heap().trim(1);
    ASSERT_EQ(large_bin().n, 0);
    free_blocks(1, large / 2);
    const std::uint64_t before = the_heap().stored_bytes();
    void* blocks[3];
    for (void*& block : blocks) block = alloc_block(large);
    for (void* block : blocks) {
        free_block(block);
        the_heap().advance_stamp();
    }
    EXPECT_EQ(the_heap().stored_bytes(), before + (3 << 20));
    for (const int age : {-3, -2, -2, -1, 0}) {  // of blocks that came back 3, 2 and 1 stamps ago
        the_heap().trim(age);
        ASSERT_EQ(large_bin().n, -age);
        for (int i = 0; i < -age; ++i) {
            EXPECT_EQ(large_bin().entries[i].block, blocks[3 + age + i]);
        }
    }
    EXPECT_EQ(the_heap().bin(18).n, 1);  // half a million bytes aren't worth it
    EXPECT_EQ(the_heap().stored_bytes(), before);
}

TEST(MemoryReports, Heap) {
    the_heap().trim(1);
    free_blocks(2, large);
    format_scratch("").clear();  // the report has to ask for its scratch text
    const int n_of_bin_10 = static_cast<int>(the_heap().bin(10).n);
    captured_console console;
    report_bins("of a test");
    std::vector<std::string> lines = split(console.text, '\n');
    ASSERT_EQ(lines.size(), 32U);
    EXPECT_EQ(lines[0], "heap_3 of a test ===================");
    EXPECT_EQ(lines[20], "19 1048576 2 2097152 16");
    EXPECT_TRUE(lines[11].starts_with("10 2048 " + std::to_string(n_of_bin_10) + " "));
    testing::internal::CaptureStdout();
    report_heap("of a test");
    std::fflush(stdout);
    lines = split(testing::internal::GetCapturedStdout(), '\n');
    ASSERT_EQ(lines.size(), 33U);
    EXPECT_EQ(lines[0], "of a test =======");
    EXPECT_EQ(lines[20], "Aa 19 n= 2 n0= 16 hn= 1048576");
    int n = 0;
    for (std::size_t i = 1; i <= 31; ++i) n += std::stoi(lines[i].substr(lines[i].find("n= ") + 3));
    EXPECT_TRUE(lines[32].starts_with("tot n= " + std::to_string(n) + " w_stored Gb= 0.00"));
}

TEST(MemoryReports, Allocators) {
    const struct {
        std::size_t items;  // of 72 bytes
        const char* row;
    } rows[] = {
        {0, ""}, {114, "18 72 113 2 16272 8208\n"}, {113, "18 72 113 1 8136 8136\n"}, {0, ""}};
    std::vector<void*> items;
    for (const auto& row : rows) {
        while (items.size() < row.items) items.push_back(pool_new(72));
        for (; items.size() > row.items; items.pop_back()) pool_delete(items.back(), 72);
        captured_console console;
        report_allocators("t");
        EXPECT_TRUE(console.text.starts_with("allocators_4 t ===================\n"));
        const std::size_t at = console.text.find("\n18 ") + 1;
        EXPECT_EQ(at == 0 ? "" : console.text.substr(at), row.row);
    }
}

}  // namespace
