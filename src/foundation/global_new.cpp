// Replaces new and delete for the whole program by the block heap, which then also feeds what the
// standard library allocates. Blocks are aligned to 8 bytes: every source linked with this file
// must be compiled for that, or the compiler would assume 16.

#include <cstddef>
#include <new>

#include "foundation/memory.h"

static_assert(__STDCPP_DEFAULT_NEW_ALIGNMENT__ == 8,
              "compile with -faligned-new=8 (g++) or -fnew-alignment=8 (clang++)");

void* operator new(std::size_t size) { return alloc_block(size); }
void* operator new[](std::size_t size) { return alloc_block(size); }

// The library's own forms of these lead to the ones above, but those of a sanitizer don't.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return alloc_block(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void* operator new[](std::size_t size, const std::nothrow_t& nothrow) noexcept {
    return operator new(size, nothrow);
}

void operator delete(void* pointer) noexcept { free_block(pointer); }
void operator delete[](void* pointer) noexcept { free_block(pointer); }
void operator delete(void* pointer, std::size_t) noexcept { free_block(pointer); }
void operator delete[](void* pointer, std::size_t) noexcept { free_block(pointer); }
void operator delete(void* pointer, const std::nothrow_t&) noexcept { free_block(pointer); }
void operator delete[](void* pointer, const std::nothrow_t&) noexcept { free_block(pointer); }
