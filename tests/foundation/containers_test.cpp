#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "foundation/ctr_3.h"
#include "foundation/heap_watch.h"
#include "foundation/string_3.h"

namespace {

using ints_0 = list_0_3<int>;
using ints_n1 = list_n1_3<int>;
using numbers = std::vector<int>;

// Elements of every form are made from a number, so that a list of them can be compared with a
// std::vector of the numbers.
void make(int number, int& element) { element = number; }
void make(int number, string_3& element) {
    const auto length = static_cast<std::size_t>(number % 90);
    element = (std::string(length, 's') + std::to_string(number)).c_str();
}

template <typename T, typename B>
void make(int number, ctr_obj_3<T, B>& element) {
    element.clear();
    for (int i = 0; i < 1 + number % 20; ++i) make(number + i, element.add());
}

template <typename T>
T made(int number) {
    T element;
    make(number, element);
    return element;
}

template <typename List>
List list_of(const numbers& model, [[maybe_unused]] int base = 0) {
    List list;
    for (const int number : model) make(number, list.add());
    if constexpr (List::has_base) list.set_base(base);
    return list;
}

template <typename List>
void expect_holds(const List& list, const numbers& model) {
    ASSERT_EQ(list.n, static_cast<int>(model.size()));
    ASSERT_LE(list.n, list.n_max);
    int i = list.first();
    for (const int number : model) {
        ASSERT_TRUE(element_equal(list[i++], made<typename List::value_type>(number))) << i;
    }
}

TEST(Containers, CapacityAndCount) {
    const auto after = [](auto operation) -> numbers {
        ints_0 list = list_of<ints_0>({0, 1, 2, 3, 4, 5, 6, 7, 8});
        list.set_max_n(16, true);
        const int* block = list.p;
        operation(list);
        return {list.n_max, list.n, list.p == block};
    };
    const ints_0 three = list_of<ints_0>({5, 6, 7});
    EXPECT_EQ(after([](ints_0& a) { a.set_n(17); }), (numbers{17, 17, 0}));
    EXPECT_EQ(after([](ints_0& a) { a.set_n_discard(31); }), (numbers{31, 31, 0}));
    EXPECT_EQ(after([](ints_0& a) { a.set_max_n(16, false); }), (numbers{16, 9, 1}));
    EXPECT_EQ(after([](ints_0& a) { a.add_n(8); }), (numbers{34, 17, 0}));
    EXPECT_EQ(after([](ints_0& a) { a.append(a); }), (numbers{18, 18, 0}));
    EXPECT_EQ(after([&](ints_0& a) { a.set_like(three); }), (numbers{3, 3, 0}));
    EXPECT_EQ(after([&](ints_0& a) { a.assign(three); }), (numbers{3, 3, 0}));
    EXPECT_EQ(after([](ints_0& a) { a.assign(ints_0(a)); }), (numbers{16, 9, 1}));
    ints_0 grown;
    for (int i = 1; i <= 33; ++i) {
        grown.add(i);
        EXPECT_EQ(grown.n_max, i <= 8 ? 8 : i <= 16 ? 16 : i <= 32 ? 32 : 64) << i;
    }
    EXPECT_THROW(n_added_3<int>::grown(1 << 30), std::bad_alloc);
    EXPECT_THROW(n_added_3<int>::added(1, 2147483647), std::bad_alloc);
    // Plain elements are kept up to the capacity.
    const auto cut_and_grown = [](ints_0& a) { a.n = 2, a.set_max_n(99, true), a.set_n(a[8]); };
    EXPECT_EQ(after(cut_and_grown), (numbers{99, 8, 0}));
}

TEST(Containers, OffsetIndices) {
    vec_3<int, int, ctr_base_n1_3<int, int, mem_copy_3<int, int>>> powers;
    for (const int i : {1, 2, 4, 8}) powers.add(i);
    const int* address = &powers[0];
    powers.set_base(-2);
    EXPECT_EQ(&powers[-2], address);
    EXPECT_EQ(powers.sum(-1, 0), 6);
    ints_n1 other;
    other.set_like_base(powers);
    EXPECT_EQ(other.base, -2);
    other.set_like(powers);
    EXPECT_EQ(other.base, 0);
    powers.set_base(7);
    EXPECT_FALSE(survives(1, [&] { powers.set_like(list_of<ints_0>({1, 2, 3})); }));
    EXPECT_EQ(powers.base, 7);
    other = list_of<ints_n1>({5, 6}, 2147483646);
    EXPECT_EQ(other.last(), 2147483647);
    EXPECT_EQ(other.find(6), 2147483647);
    other.remove_flagged(list_of<ints_n1>({1, 0}, 2147483646));
    EXPECT_EQ(other[2147483646], 6);
    ints_n1 taker;
    taker.take(other);
    EXPECT_EQ(taker.base, 2147483646);
    EXPECT_EQ(other.base, 2147483646);
    taker.assign(ints_n1());
    EXPECT_EQ(taker.base, 2147483646);
}

TEST(Containers, OverlapGoesByIndex) {
    auto list = list_of<list_n1_3<string_3>>({0, 1, 2, 3, 4});
    list.copy_overlap(list_of<list_n1_3<string_3>>({5, 6, 7}, 3));
    expect_holds(list, {0, 1, 2, 5, 6});
    auto from = list_of<list_n1_3<string_3>>({8, 9}, -1);
    list.move_overlap(from);
    expect_holds(list, {9, 1, 2, 5, 6});
    EXPECT_TRUE(from[0].is_empty());
}

struct counted {  // constructed, with nothing to destroy
    static inline int built = 0;
    int value = 1;
    counted() noexcept { ++built; }
};

struct logged {
    static inline numbers log;  // n when element n is built, -n when it is destroyed
    int id = static_cast<int>(log.size()) + 1;
    logged() noexcept { log.push_back(id); }
    ~logged() { log.push_back(-id); }
    void take(logged&) {}
};

TEST(Containers, ElementsLiveWithTheCapacity) {
    {
        list_0_3<logged> list;
        list.set_max_n(3, false);
        list.set_n(1);
        list.set_max_n(2, true);
    }
    EXPECT_EQ(logged::log, (numbers{1, 2, 3, 4, 5, -3, -2, -1, -5, -4}));
    list_0_3<counted> list;
    list.set_n(3);
    list[2].value = 7;
    list.set_n(2);
    list.set_n_discard(3);
    EXPECT_EQ(counted::built, 3) << "with the block alone";
    EXPECT_EQ(list[2].value, 7);
    list.set_n(2);
    list.set_max_n(20, true);
    EXPECT_EQ(counted::built, 23);
    EXPECT_EQ(list.add().value, 1);
}

TEST(Containers, NoInnerBlockIsCopied) {
    auto list = list_of<list_n1_3<string_3>>({70, 71, 72, 73, 74, 75, 76, 77}, 2);
    const char* const kept[] = {list[4].data, list[6].data, list[7].data};
    EXPECT_TRUE(survives(2, [&] { list.add(); }));  // one request: the block of the list
    list.set_max_n(6, true);
    list.set_n(6);
    list.remove_at(3);
    list.remove_flagged(list_of<ints_n1>({1, 0, -1, 0, 0}, 2));
    list.insert_at(list[2], 2);
    list.remove_at(2);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(list[2 + i].data, kept[i]);
}

TEST(Containers, Comparing) {
    const numbers ascending[] = {{}, {1}, {7}, {1, 9}, {2, 1}, {2, 3}, {0, 0, 0}};
    for (const numbers& a : ascending) {
        for (const numbers& b : ascending) {
            ints_n1 list = list_of<ints_n1>(a, 5);
            list.set_max_n(30, true);
            EXPECT_EQ(list.equal(list_of<ints_n1>(b)), &a == &b) << &a - ascending;
            EXPECT_EQ(list.less(list_of<ints_n1>(b)), &a < &b) << &a - ascending;
        }
    }
}

// Random operations on a list and on a std::vector. What is added comes from the list itself where
// it can; each operation is first tried with a request that fails, which must change nothing.
template <typename List>
void follow_vector(unsigned seed) {
    using element = typename List::value_type;
    std::mt19937 random(seed);
    List list;
    numbers model;
    int base = 0;
    for (unsigned step = 0; step < 1500; ++step) {
        const auto place = static_cast<std::ptrdiff_t>(random() % (model.size() + 1));
        const auto here = model.begin() + place;
        const int index = list.first() + static_cast<int>(place);
        const bool inside = here != model.end();
        const int number = inside ? *here : static_cast<int>(random() % 1000);
        const element fresh = made<element>(number);
        const element& value = inside ? list[index] : fresh;
        const auto change = [&](auto operation) {
            if (survives(1 + random() % 3, operation)) return;
            expect_holds(list, model);
            operation();
        };
        const auto kind = random() % 15;
        SCOPED_TRACE(testing::PrintToString(std::vector<std::size_t>{seed, step, kind}));
        if (model.size() > 60) {
            list.clear();
            model.clear();
            base = 0;
        } else if (kind < 4) {
            change([&] { list.add(value); });
            model.push_back(number);
        } else if (kind < 7) {
            change([&] { list.insert_at(value, index); });
            model.insert(here, number);
        } else if (kind < 9 && inside) {
            list.remove_at(index);
            model.erase(here);
        } else if (kind == 9) {
            change([&] { list.append(list); });
            model.resize(2 * model.size());
            std::copy_n(model.begin(), model.size() / 2, model.begin() + list.n / 2);
        } else if (kind == 10) {
            ints_n1 flags = list_of<ints_n1>(model, list.first());
            for (int& flag : flags) flag %= 4;
            list.remove_flagged(flags);
            std::erase_if(model, [](int m) { return m % 4 != 0; });
        } else if (kind == 11) {
            change([&] { list.set_max_n(list.n + static_cast<int>(place), true); });
        } else if (kind == 12) {
            List part;
            part.append(list);
            part.set_n(static_cast<int>(place));
            if constexpr (List::has_base) part.set_base(number % 9 - 4);
            if (place > 0) make(number + 1, part[part.first()]);
            change([&] { list.assign(part); });
            model.resize(static_cast<std::size_t>(place));
            if (place > 0) {  // an empty list leaves the first index alone
                model[0] = number + 1;
                base = part.first();
            }
        } else if (kind == 13) {
            change([&] { list = List(list); });
        } else if constexpr (List::has_base) {
            list.set_base(base = number % 9 - 4);
        }
        if (model.empty() && (kind == 11 || kind == 13)) base = 0;  // cleared
        expect_holds(list, model);
        ASSERT_EQ(list.first(), base);
        const auto found = std::find(model.begin(), model.end(), number) - model.begin();
        ASSERT_EQ(list.find(fresh), found == list.n ? not_found : list.first() + found);
        if (testing::Test::HasFailure()) return;
    }
}

template <typename... Lists>
void follow_vectors() {
    for (unsigned seed = 1; seed <= 3; ++seed) {
        auto before = free_blocks();
        for (int run = 0; run < 3; ++run) {  // the last needs no more blocks than the second
            before = free_blocks();
            (follow_vector<Lists>(seed), ...);
        }
        EXPECT_EQ(free_blocks(), before) << "seed " << seed;
    }
}

TEST(Containers, FollowVectorsAndSurviveFailures) {
    follow_vectors<ints_0, ints_n1, list_0_3<string_3>, list_n1_3<string_3>, list_0_3<ints_n1>,
                   list_n1_3<list_0_3<string_3>>>();
}

}  // namespace
