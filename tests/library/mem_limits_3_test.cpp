#include "foundation/mem_limits_3.h"

#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <regex>
#include <sstream>

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

struct MemLimits : testing::Test {
    ~MemLimits() override { the_heap().before_alloc = nullptr; }
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
    } rows[] = {{"16 0", 16 * gib},
                {"\t\r\n 2.5\r\n1 3 junk", 5 * gib / 2},
                {"16", 16 * gib},
                {"0 0.5", bytes(physical * 0.5)},
                {"-0.125 0", bytes(physical - 0.125)},
                {"0", 0},
                {"", 0},
                {"many 0.25", bytes(physical * 0.25)},
                {"0 many", 0},
                {"nan 1", bytes(physical)},
                {"0 nan", 0},
                {"4GB", 4 * gib},
                {"'3", 0},  // no comments here
                {"0 -1", 0},
                {"-1e9", 0},
                {"-inf", 0},
                {"2e10", most},
                {"17179869184", most},
                {"inf 0", most},
                {"1e999", most},
                {"1e-12", 0},
                {"0.000000001", 1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        the_heap().before_alloc = nullptr;
        write_file("MaxMem.TXT", row.text);
        mem_limits_3 limits;
        limits.read_max_mem();
        EXPECT_EQ(limits.limit_bytes, row.limit);
        EXPECT_EQ(limits.physical_gb, physical);
        EXPECT_FALSE(std::isnan(limits.max_gb));
        EXPECT_EQ(limits.slot_threshold, gib);
        EXPECT_EQ(limits.total_threshold, gib / 2);
        EXPECT_NE(the_heap().before_alloc, nullptr);
        write_file("MaxMem.TXT", "3");
        limits.read_max_mem();
        EXPECT_EQ(limits.limit_bytes, row.limit);
    }
}

TEST_F(MemLimits, NeedsTheFile) {
    mem_limits_3 limits;
    EXPECT_FAILURE(limits.read_max_mem(), " Cannot open file MaxMem.TXT");
    EXPECT_EQ(limits.limit_bytes, std::uint64_t{1} << 63);
    EXPECT_EQ(limits.slot_threshold, std::uint64_t{1} << 63);
    EXPECT_EQ(the_heap().before_alloc, nullptr);
    std::filesystem::create_directory("data");
    const std::string prefix = std::string("data") + platform_separator;
    write_file(prefix + "MaxMem.TXT", "2");
    data_dir() = prefix.c_str();
    limits.read_max_mem();
    data_dir() = "";
    EXPECT_EQ(limits.limit_bytes, 2 * gib);
}

TEST_F(MemLimits, CountsWhatIsRequested) {
    mem_limits_3 limits;
    EXPECT_EQ(limits.slots.n, 1);
    limits.check_memory(SIZE_MAX / 2);
    EXPECT_EQ(limits.slots[0], SIZE_MAX / 2);
    limits = mem_limits_3();
    limits.limit_bytes = ~std::uint64_t{0};
    limits.slot_threshold = 100;
    limits.total_threshold = 250;
    const struct {
        std::size_t size;
        std::uint64_t slot;
        std::uint64_t total;
    } rows[] = {{100, 100, 0}, {1, 0, 101},    {0, 0, 101}, {101, 0, 202},
                {48, 48, 202}, {52, 100, 202}, {1, 0, 0},   {5, 5, 0}};
    for (const auto& row : rows) {
        limits.check_memory(row.size);
        EXPECT_EQ(limits.slots[0], row.slot);
        EXPECT_EQ(limits.total, row.total);
    }
    EXPECT_GT(limits.working_set_bytes(), 100000U);
    EXPECT_LT(limits.working_set_bytes(), std::uint64_t{1} << 50);
}

// A console whose text outlives an exit.
struct file_console : stream_out {
    using stream_out::operator<<;
    stream_out& operator<<(const char* text) override {
        std::ofstream("report", std::ios::binary | std::ios::app) << text;
        return *this;
    }
};

void exceed_limit() {
    file_console console;
    push_console_stream(console);
    mem_limits_3 limits;
    limits.limit_bytes = 1 << 20;
    limits.physical_gb = 12.3456;
    limits.slot_threshold = 0;
    limits.check_memory(1);
}

void request_more_than_a_gib() {
    the_mem_limits().read_max_mem();
    for (int i = 0; i < 1025; ++i) free_block(alloc_block(1 << 20));
}

TEST_F(MemLimits, EndsTheProcess) {
    EXPECT_EXIT(exceed_limit(), testing::ExitedWithCode(1), "");
    const std::regex report(
        "Too much memory used\n\nMemory used \\(GB\\) :[ 0-9]{4}\\.[0-9]{3}\n"
        "Maximum usage allowed \\(GB\\) :   0\\.001\nPyhsical memory \\(GB\\) :  12\\.346\n\n"
        "Increase limit in file MaxMem\\.TXT");
    EXPECT_TRUE(std::regex_match(read_file("report"), report)) << read_file("report");
    write_file("MaxMem.TXT", "0");
    EXPECT_EXIT(request_more_than_a_gib(), testing::ExitedWithCode(1), "");
    write_file("MaxMem.TXT", "1000");
    const auto stay_below = [] {
        request_more_than_a_gib();
        std::exit(7);
    };
    EXPECT_EXIT(stay_below(), testing::ExitedWithCode(7), "");
}

// Blocks of 1 MiB, so large that one of them is worth trimming.
constexpr std::size_t large = 1000000;
const heap_bin_3& large_bin() { return the_heap().bin(19); }

void free_blocks(int n, std::size_t size) {
    std::vector<void*> blocks;
    for (int i = 0; i < n; ++i) blocks.push_back(alloc_block(size));
    for (void* block : blocks) free_block(block);
}

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
    const struct {
        int age;
        std::int64_t n;  // of blocks that came back 3, 2 and 1 stamps ago
    } rows[] = {{-3, 3}, {-2, 2}, {-2, 2}, {-1, 1}, {0, 0}};
    for (const auto& row : rows) {
        the_heap().trim(row.age);
        ASSERT_EQ(large_bin().n, row.n) << row.age;
        for (int i = 0; i < row.n; ++i) {
            EXPECT_EQ(large_bin().entries[i].block, blocks[3 - row.n + i]);
        }
    }
    free_blocks(2, large);
    the_heap().trim(-1000000000);
    EXPECT_EQ(large_bin().n, 2);
    the_heap().trim(1);
    EXPECT_EQ(large_bin().n, 0);
    EXPECT_EQ(the_heap().bin(18).n, 1);  // half a million bytes aren't worth it
    EXPECT_EQ(the_heap().stored_bytes(), before);
}

struct captured_console : stream_out {
    captured_console() { push_console_stream(*this); }
    ~captured_console() override { pop_console_stream(); }
    using stream_out::operator<<;
    stream_out& operator<<(const char* piece) override {
        text += piece;
        return *this;
    }
    std::string text;
};

TEST(MemoryReports, Bins) {
    the_heap().trim(1);
    free_blocks(2, large);
    captured_console console;
    report_bins("of a test");
    const std::vector<std::string> lines = split(console.text, '\n');
    ASSERT_EQ(lines.size(), 32U);
    EXPECT_EQ(lines[0], "heap_3 of a test ===================");
    EXPECT_EQ(lines[1], "0 2 0 0 0");
    EXPECT_EQ(lines[20], "19 1048576 2 2097152 16");
    EXPECT_EQ(lines[31], "30 2147483640 0 0 0");
    EXPECT_EQ(console.text.back(), '\n');
}

TEST(MemoryReports, Heap) {
    free_blocks(2, large);
    testing::internal::CaptureStdout();
    report_heap("of a test");
    std::fflush(stdout);
    const std::string text = testing::internal::GetCapturedStdout();
    const std::vector<std::string> lines = split(text, '\n');
    ASSERT_EQ(lines.size(), 33U);
    EXPECT_EQ(lines[0], "of a test =======");
    EXPECT_EQ(lines[1], "Aa 0 n= 0 n0= 0 hn= 2");
    EXPECT_EQ(lines[20], "Aa 19 n= 2 n0= 16 hn= 1048576");
    long long n = 0;
    long long n_max = 0;
    double bytes = 0;
    for (int i = 0; i < heap_3::n_bins; ++i) {
        long long row[3];
        const std::string& line = lines[static_cast<std::size_t>(i) + 1];
        ASSERT_EQ(
            std::sscanf(line.c_str(), "Aa %*d n= %lld n0= %lld hn= %lld", row, row + 1, row + 2),
            3);
        n += row[0];
        n_max += row[1];
        bytes += static_cast<double>(row[0] * row[2]);
    }
    char totals[200];
    std::snprintf(totals, sizeof totals, "tot n= %lld w_stored Gb= %-.9g tot n0= %lld", n,
                  bytes * 1e-9, n_max);
    EXPECT_EQ(lines[32], totals);
    EXPECT_EQ(text.back(), '\n');
}

// The row of the allocator of 72 bytes in a report.
std::string row_of_large_items() {
    captured_console console;
    report_allocators("t");
    EXPECT_TRUE(console.text.starts_with("allocators_4 t ===================\n"));
    for (const std::string& line : split(console.text, '\n')) {
        if (line.starts_with("18 ")) return line;
    }
    return "";
}

TEST(MemoryReports, Allocators) {
    ASSERT_EQ(the_allocators()[18]->chunks.n, 0);
    EXPECT_EQ(row_of_large_items(), "");
    std::vector<void*> items;
    for (int i = 0; i < 114; ++i) items.push_back(pool_new(72));
    EXPECT_EQ(row_of_large_items(), "18 72 113 2 16272 8208");
    pool_delete(items.back(), 72);
    items.pop_back();
    EXPECT_EQ(row_of_large_items(), "18 72 113 1 8136 8136");
    for (void* item : items) pool_delete(item, 72);
    EXPECT_EQ(row_of_large_items(), "");
}

}  // namespace
