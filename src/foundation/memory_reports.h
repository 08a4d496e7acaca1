#pragma once

// Reports on the two layers of memory, for diagnosis. Each begins with a title.

/// The bins of the heap with their totals, on standard output.
void report_heap(const char* title);

/// The bins of the heap, on the console stream: number, bytes of a block, free blocks, bytes of all
/// free blocks, capacity.
void report_bins(const char* title);

/// The allocators that are in use, on the console stream: number, bytes of an item, items of a
/// chunk, chunks, bytes of all chunks, bytes in use.
void report_allocators(const char* title);
