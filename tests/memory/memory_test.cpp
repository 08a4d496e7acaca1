// A plain program without a test framework: here the global operator new leads to the block heap,
// and a prebuilt framework counts on other addresses. It prints a line for each failed check.

#include "foundation/memory.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <new>

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

void check_form(const char* name, std::size_t size, auto take, auto give_back) {
    const heap_bin_3& bin = the_heap().bin(heap_3::bin_of(size));
    void* block = take(size);
    const std::uintptr_t place = address(block);
    const std::int64_t held = bin.n;
    give_back(block);
    check(bin.n == held + 1, name);
    block = take(size);
    check(address(block) == place, name);
    give_back(block);
}

void check_forms_of_new() {
    const auto plain = [](void* p) { ::operator delete(p); };
    check_form(
        "new", 40, [](std::size_t n) { return ::operator new(n); }, plain);
    check_form(
        "new of nothing", 1, [](std::size_t) { return ::operator new(0); }, plain);
    check_form(
        "new[]", 100, [](std::size_t n) { return ::operator new[](n); },
        [](void* p) { ::operator delete[](p); });
    check_form(
        "nothrow new", 500, [](std::size_t n) { return ::operator new(n, std::nothrow); },
        [](void* p) { ::operator delete(p, std::nothrow); });
}

void check_alignment() {
    const long double* number = new long double(1.5L);
    check(address(number) % alignof(long double) == 0, "new long double");
    delete number;
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
    list_n1_3<string_3>* list = nullptr;
    const void* seen[4] = {};

    last_of_all() = default;
    last_of_all(const last_of_all&) = delete;
    last_of_all& operator=(const last_of_all&) = delete;

    void fill() {
        text = new string_3("a text");
        list = new list_n1_3<string_3>;
        for (int i = 0; i < 16; ++i) list->add(string_3(i));
    }

    ~last_of_all() {
        check(heap_gone(), "heap gone at the end");
        seen[0] = list;
        seen[1] = list->block();
        list->add(string_3("one more"));
        seen[2] = list->block();
        check((*list)[0] == "0" && (*list)[16] == "one more", "list after the heap");
        text->append(" that grows beyond the items of the pool, and so comes from the heap itself");
        seen[3] = text->data;
        check(text->length() == 81, "text after the heap");
        delete text;
        delete list;
        std::fflush(stdout);
        if (failures != 0) std::_Exit(1);
    }
};

[[gnu::init_priority(101)]] last_of_all last;

}  // namespace

int main() {
    check(!heap_gone(), "heap gone at the start");
    check_forms_of_new();
    check_alignment();
    check_refusal();
    last.fill();
    return failures == 0 ? 0 : 1;
}
