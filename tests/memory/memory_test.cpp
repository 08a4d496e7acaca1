// A plain program without a test framework: here the global operator new leads to the block heap,
// and a prebuilt framework counts on other addresses. It prints a line for each failed check.

#include "foundation/memory.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "foundation/heap_3.h"
#include "foundation/string_3.h"

namespace {

int failures = 0;

void check(bool holds, const char* what) {
    if (holds) return;
    std::printf("failed: %s\n", what);
    ++failures;
}

std::uintptr_t address(const void* pointer) { return reinterpret_cast<std::uintptr_t>(pointer); }

void check_forms_of_new() {
    const struct {
        const char* name;
        void* (*take)(std::size_t size);
        void (*give_back)(void* pointer);
        std::size_t size;
    } rows[] = {
        {"new", [](std::size_t n) { return ::operator new(n); },
         [](void* p) { ::operator delete(p); }, 40},
        {"new[]", [](std::size_t n) { return ::operator new[](n); },
         [](void* p) { ::operator delete[](p); }, 100},
        {"nothrow new", [](std::size_t n) { return ::operator new(n, std::nothrow); },
         [](void* p) { ::operator delete(p, std::nothrow); }, 500},
        {"new of nothing", [](std::size_t) { return ::operator new(0); },
         [](void* p) { ::operator delete(p); }, 1},
        {"new of an object", [](std::size_t) -> void* { return new std::int64_t(7); },
         [](void* p) { delete static_cast<std::int64_t*>(p); }, 8},
    };
    for (const auto& row : rows) {
        const heap_bin_3& bin = the_heap().bin(heap_3::bin_of(row.size));
        void* a = row.take(row.size);
        void* b = row.take(row.size);
        const std::uintptr_t addresses[] = {address(a), address(b)};
        const std::int64_t held = bin.n;
        row.give_back(a);
        row.give_back(b);
        check(bin.n == held + 2, row.name);
        a = row.take(row.size);
        b = row.take(row.size);
        check(address(a) == addresses[1] && address(b) == addresses[0], row.name);
        row.give_back(a);
        row.give_back(b);
    }
    ::operator delete(nullptr);
}

std::size_t last_request = 0;

void check_library_objects() {
    the_heap().before_alloc = [](std::size_t size) { last_request = size; };
    // The optimiser may leave out an allocation whose address it can follow.
    static std::vector<double> numbers;
    numbers.resize(50);
    check(last_request == 400, "vector");
    static std::string text;
    text.assign(100, 'x');
    check(last_request >= 101, "string");
    the_heap().before_alloc = nullptr;
}

struct alignas(64) wide {
    char bytes[64];
};

void check_aligned_new() {
    for (int i = 0; i < 4; ++i) {
        wide* objects = new wide[3];
        long double* number = new long double(1.5L);
        check(address(objects) % alignof(wide) == 0, "aligned new");
        check(address(number) % alignof(long double) == 0, "new long double");
        delete number;
        delete[] objects;
    }
}

void check_refusal() {
    const volatile std::size_t too_large = heap_3::largest_request + 1;
    check(::operator new(too_large, std::nothrow) == nullptr, "nothrow new of too much");
    try {
        ::operator delete(::operator new(too_large));
        check(false, "new of too much");
    } catch (const std::bad_alloc&) {}
}

// Built before anything asks for memory, and so destroyed after the heap. What it took and gave
// back stays in sight of a leak checker, since the heap no longer keeps it.
struct last_of_all {
    string_3* text = nullptr;
    std::string* library_text = nullptr;
    list_n1_3<string_3>* list = nullptr;
    const void* seen[8] = {};

    last_of_all() = default;
    last_of_all(const last_of_all&) = delete;
    last_of_all& operator=(const last_of_all&) = delete;

    void fill() {
        text = new string_3("a text");
        library_text = new std::string(300, 'x');
        list = new list_n1_3<string_3>;
        for (int i = 0; i < 16; ++i) list->add(string_3(i));
    }

    ~last_of_all() {
        check(heap_gone(), "heap gone at the end");
        seen[0] = library_text;
        seen[1] = library_text->data();
        seen[2] = list;
        seen[3] = list->block();
        list->add(string_3("one more"));
        seen[4] = list->block();
        check((*list)[0] == "0" && (*list)[16] == "one more", "list after the heap");
        text->append(" that grows beyond the items of the pool, and so comes from the heap itself");
        seen[5] = text->data;
        check(text->length() == 81, "text after the heap");
        delete text;
        delete library_text;
        delete list;
        void* block = ::operator new(500);
        seen[6] = std::memset(block, 1, 500);
        ::operator delete(block);
        std::fflush(stdout);
        if (failures != 0) std::_Exit(1);
    }
};

[[gnu::init_priority(101)]] last_of_all last;

}  // namespace

int main() {
    check(!heap_gone(), "heap gone at the start");
    check_forms_of_new();
    check_library_objects();
    check_aligned_new();
    check_refusal();
    last.fill();
    return failures == 0 ? 0 : 1;
}
