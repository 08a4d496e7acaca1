#pragma once

// Free memory that the heap keeps for reuse is hidden from the address sanitizer's view of what
// may be touched; without a sanitizer these macros are nothing.

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define LOMAR6_ASAN 1
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define LOMAR6_ASAN 1
#endif

#ifdef LOMAR6_ASAN
#include <sanitizer/asan_interface.h>
#define POISON_MEMORY(pointer, size) ASAN_POISON_MEMORY_REGION(pointer, size)
#define UNPOISON_MEMORY(pointer, size) ASAN_UNPOISON_MEMORY_REGION(pointer, size)
#else
#define POISON_MEMORY(pointer, size) static_cast<void>(pointer)
#define UNPOISON_MEMORY(pointer, size) static_cast<void>(pointer)
#endif
