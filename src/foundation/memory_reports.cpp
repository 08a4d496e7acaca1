#include "foundation/memory_reports.h"

#include <bit>
#include <cinttypes>
#include <cstdio>

#include "foundation/allocators_4.h"
#include "foundation/console_text.h"
#include "foundation/heap_3.h"
#include "foundation/string_out.h"

namespace {

// The heap as it is before the text of a report takes blocks of its own.
struct heap_counts {
    heap_counts() : stored_bytes(the_heap().stored_bytes()) {
        for (int i = 0; i < heap_3::n_bins; ++i) {
            n[i] = the_heap().bin(i).n;
            n_max[i] = the_heap().bin(i).n_max;
        }
    }

    std::uint64_t stored_bytes;
    std::int64_t n[heap_3::n_bins];
    std::int64_t n_max[heap_3::n_bins];
};

const char* size_text(std::uint64_t value) { return number_text(value); }
const char* size_text(std::int64_t value) { return size_text(static_cast<std::uint64_t>(value)); }
const char* count_text(std::int64_t value) { return format_number("%" PRId64, value); }

std::int64_t items_in_use(const allocator_4& allocator) {
    std::int64_t n = 0;
    for (const chunk_4* chunk : allocator.chunks) {
        for (int word = 0; word < allocator.bitmap_words; ++word) {
            n += std::popcount(chunk->bitmap[word]);
        }
    }
    return n;
}

}  // namespace

void report_heap(const char* title) {
    const heap_counts heap;
    string_out report;
    std::int64_t n = 0;
    std::int64_t n_max = 0;
    report << title << " =======\n";
    for (int i = 0; i < heap_3::n_bins; ++i) {
        report << "Aa " << i << " n= " << size_text(heap.n[i]);
        report << " n0= " << size_text(heap.n_max[i]);
        report << " hn= " << size_text(heap_3::block_size_of(i)) << '\n';
        n += heap.n[i];
        n_max += heap.n_max[i];
    }
    report << "tot n= " << size_text(n) << " w_stored Gb= ";
    report << number_text(static_cast<double>(heap.stored_bytes) * 1e-9);
    report << " tot n0= " << size_text(n_max) << '\n';
    std::fputs(report.text(), stdout);
}

void report_bins(const char* title) {
    const heap_counts heap;
    string_out report;
    report << "heap_3 " << title << " ===================\n";
    for (int i = 0; i < heap_3::n_bins; ++i) {
        const std::uint64_t block_size = heap_3::block_size_of(i);
        const std::uint64_t bytes = static_cast<std::uint64_t>(heap.n[i]) * block_size;
        report << i << ' ' << size_text(block_size) << ' ';
        report << size_text(heap.n[i]) << ' ' << size_text(bytes) << ' ';
        report << size_text(heap.n_max[i]) << '\n';
    }
    write_console_text(report.text());
}

void report_allocators(const char* title) {
    string_out report;
    report << "allocators_4 " << title << " ===================\n";
    const allocators_4& table = the_allocators();
    for (int i = 0; i < table.n; ++i) {
        const allocator_4& allocator = *table[i];
        const std::int64_t n_chunks = allocator.chunks.n;
        if (n_chunks == 0) continue;
        const std::int64_t chunk_size = allocator.item_size * allocator.items_per_chunk;
        report << i << ' ' << count_text(allocator.item_size) << ' ';
        report << size_text(allocator.items_per_chunk) << ' ' << count_text(n_chunks) << ' ';
        report << size_text(n_chunks * chunk_size) << ' ';
        report << count_text(items_in_use(allocator) * allocator.item_size) << '\n';
    }
    write_console_text(report.text());
}
