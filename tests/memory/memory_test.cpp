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

// A block that is given back lies in its bin, and goes to the next who asks.
void check_form(const char* name, std::size_t size, auto take, auto give_back) {
    const heap_bin_3& bin = the_heap().bin(heap_3::bin_of(size));
    void* block = take(size);
    const std::uintptr_t place = address(block);
    const std::int64_t held = bin.n;
    give_back(block);
    check(bin.n == held + 1 && address(bin.entries[held].block) == place, name);
    block = take(size);
    check(address(block) == place, name);
    give_back(block);
}

void check_forms_of_new() {
    const auto plain = [](auto size) { return ::operator new(size); };
    const auto array = [](auto size) { return ::operator new[](size); };
    const auto nothrow = [](auto size) { return ::operator new(size, std::nothrow); };
    check_form("new", 40, plain, [](void* p) { ::operator delete(p); });
    const auto nothing = [](auto) { return ::operator new(0); };  // has the form of one byte
    check_form("new of nothing", 1, nothing, [](void* p) { ::operator delete(p); });
    check_form("new[]", 100, array, [](void* p) { ::operator delete[](p); });
    check_form("nothrow new", 500, nothrow, [](void* p) { ::operator delete(p, std::nothrow); });
    const long double* number = new long double(1.5L);
    check(address(number) % alignof(long double) == 0, "alignment beyond that of the heap");
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
    check_forms_of_new();
    check_refusal();
    last.fill();
    return failures == 0 ? 0 : 1;
}
