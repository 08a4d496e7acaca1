#pragma once

#include <cmath>

#include "foundation/ctr_3.h"
#include "foundation/not_found.h"

// Sorting and searching. A sort works on a list of indices, so that large elements stay in place.
// It is a heap sort; don't replace it by another one: equal elements would come out in another
// order, which shows in the files written. element_less compares, unless a call names an order.

using int_list_3 = list_0_3<int>;

/// What a sort uses when the caller names no order.
struct element_order_3 {
    template <typename T>
    bool operator()(const T& a, const T& b) const {
        return element_less(a, b);
    }
};

/// The sift step of the heap sort: sinks the index `t` from place `i` into the heap of index[0] to
/// index[top].
template <typename T, typename Less>
void sift_index(const T* elements, int* index, int i, int top, int t, Less less) {
    int j = 2 * i + 1;
    while (j <= top) {
        if (j < top && less(elements[index[j]], elements[index[j + 1]])) ++j;
        if (!less(elements[t], elements[index[j]])) break;
        index[i] = index[j];
        i = j;
        j = 2 * j + 1;
    }
    index[i] = t;
}

/// Sorts positions: `index` holds 0 to count - 1 on entry, and on return the positions of
/// `elements` in ascending order.
template <typename T, typename Less>
void heap_sort_positions(const T* elements, int* index, int count, Less less) {
    if (count < 2) return;
    int top = count - 1;
    for (int low = (count + 1) / 2 - 1; low >= 0; --low) {
        sift_index(elements, index, low, top, index[low], less);
    }
    for (;;) {
        const int t = index[top];
        index[top] = index[0];
        if (--top < 1) {
            index[0] = t;
            return;
        }
        sift_index(elements, index, 0, top, t, less);
    }
}

/// Gives the indices of a list, that of the least element first. Nothing in the list changes. An
/// index of the offset kind gets the first index of the list.
template <typename List, typename Index, typename Less = element_order_3>
void sort_index(const List& list, Index& index, Less less = {}) {
    const int count = list.n;
    if (count == 0) {
        index.n = 0;
        return;
    }
    index.set_n_discard(count);
    if constexpr (Index::has_base) index.set_base(list.first());
    int* positions = index.block();
    for (int k = 0; k < count; ++k) positions[k] = k;
    heap_sort_positions(list.block(), positions, count, less);
    if (const int base = list.first(); base != 0) {
        for (int k = 0; k < count; ++k) positions[k] += base;
    }
}

/// Replaces the list by the elements that `index` names, in its order and without spare room. An
/// empty index clears the list.
template <typename List, typename Index>
void apply_index(List& list, const Index& index) {
    if (index.n == 0) return list.clear();
    List rebuilt;
    if constexpr (List::has_base) rebuilt.set_base(list.base);
    rebuilt.set_n(index.n);
    auto* to = rebuilt.block();
    for (int i : index) *to++ = list[i];
    list.take(rebuilt);
}

/// Sorts the list itself.
template <typename List, typename Less = element_order_3>
void sort(List& list, Less less = {}) {
    int_list_3 index;
    sort_index(list, index, less);
    apply_index(list, index);
}

/// Gives a list `n` elements from index 0 on; what it held is lost.
template <typename List>
void size_from_0(List& list, int n) {
    if constexpr (List::has_base) list.set_base(0);
    list.set_n_discard(n);
}

/// Picks one index out of `index` for each value in the list: the one that sorting put first.
/// `index` comes from sort_index, and the list mustn't be empty. Elements are equal when neither
/// comes before the other.
template <typename List, typename Index, typename Unique, typename Less = element_order_3>
void unique_index(const List& list, const Index& index, Unique& unique, Less less = {}) {
    size_from_0(unique, list.n);
    const int* positions = index.block();
    int runs = 0;
    for (int k = 0; k < index.n; ++k) {
        if (k == 0 || less(list[positions[k - 1]], list[positions[k]])) {
            unique[runs++] = positions[k];
        }
    }
    unique.set_n(runs);
}

/// As unique_index; `count` is how often each value occurs.
template <typename List, typename Index, typename Unique, typename Count,
          typename Less = element_order_3>
void unique_count(const List& list, const Index& index, Unique& unique, Count& count,
                  Less less = {}) {
    size_from_0(unique, list.n);
    if constexpr (Count::has_base) count.set_base(0);
    count.new_n_zero(list.n);
    const int* positions = index.block();
    int runs = 0;
    for (int k = 0; k < index.n; ++k) {
        if (k == 0 || less(list[positions[k - 1]], list[positions[k]])) {
            unique[runs++] = positions[k];
        }
        ++count[runs - 1];
    }
    unique.set_n(runs);
    count.set_n(runs);
}

/// Sorts the list and drops repeated values. A list of one element isn't touched.
template <typename List, typename Less = element_order_3>
void sort_unique(List& list, Less less = {}) {
    if (list.n < 2) return;
    int_list_3 index;
    int_list_3 unique;
    sort_index(list, index, less);
    unique_index(list, index, unique, less);
    apply_index(list, unique);
}

/// What group() finds: the results of unique_count, and for each element of the list the number of
/// its run of equal elements.
struct group_record_3 {
    int_list_3 index;
    int_list_3 unique;
    int_list_3 count;
    list_n1_3<int> group;
};

/// Finds out which elements of a list are equal. record.group has the indices of the list.
template <typename List, typename Less = element_order_3>
void group(const List& list, group_record_3& record, Less less = {}) {
    sort_index(list, record.index, less);
    record.group.set_like(list);
    if (list.n == 0) {
        record.unique.clear();
        record.count.clear();
        return;
    }
    record.group.set_base(list.first());
    unique_count(list, record.index, record.unique, record.count, less);
    int k = 0;
    for (int run = 0; run < record.count.n; ++run) {
        for (int i = 0; i < record.count[run]; ++i) record.group[record.index[k++]] = run;
    }
}

/// Where each run begins and ends in record.index. Without runs `first` and `last` aren't touched.
template <typename First, typename Last>
void run_bounds(const group_record_3& record, First& first, Last& last) {
    if (record.unique.n == 0) return;
    size_from_0(first, record.unique.n);
    size_from_0(last, record.unique.n);
    int start = 0;
    for (int run = 0; run < record.unique.n; ++run) {
        first[run] = start;
        start += record.count[run];
        last[run] = start - 1;
    }
}

/// For each run the least index of its elements; nothing for a record without runs.
template <typename Out>
void run_minima(const group_record_3& record, Out& out) {
    if (record.unique.n == 0) return out.clear();
    size_from_0(out, record.unique.n);
    int k = 0;
    for (int run = 0; run < record.unique.n; ++run) {
        int least = record.index[k];
        for (const int end = k + record.count[run]; k < end; ++k) {
            if (record.index[k] < least) least = record.index[k];
        }
        out[run] = least;
    }
}

/// Halves the stretch from `low` to `high` of a sorted sequence; `element(i)` gives its elements.
/// The index of an element equal to `key`, or not_found.
template <typename Element, typename Key, typename Less>
int bsearch_sequence(Element element, const Key& key, int low, int high, Less less) {
    const auto same = [&](int i) { return !less(element(i), key) && !less(key, element(i)); };
    while (high - low > 1) {
        const int mid = static_cast<int>((static_cast<long long>(low) + high) >> 1);
        if (less(element(mid), key)) {
            low = mid + 1;
        } else {
            high = mid;
        }
    }
    if (same(high)) return high;
    if (low == high) return not_found;
    return same(low) ? low : not_found;
}

/// Tells the lists among the arguments of a search.
template <typename T>
concept is_list_3 = requires(const T& list) {
    list.block();
};

/// The index of `key` in a sorted list, between the indices `low` and `high`; or not_found.
template <typename List, typename Key, typename Less = element_order_3>
requires is_list_3<List>
int bsearch(const List& list, const Key& key, int low, int high, Less less = {}) {
    return bsearch_sequence([&](int i) -> decltype(auto) { return list[i]; }, key, low, high, less);
}

/// The same over the whole list.
template <typename List, typename Key, typename Less = element_order_3>
requires(is_list_3<List> && !is_list_3<Less>) int bsearch(const List& list, const Key& key,
                                                          Less less = {}) {
    if (list.n == 0) return not_found;
    return bsearch(list, key, list.first(), list.last(), less);
}

/// Searches a list that only `index` has in order. `low`, `high` and the result count in `index`.
template <typename List, typename Key, typename Index, typename Less = element_order_3>
requires(is_list_3<List>&& is_list_3<Index>) int bsearch(const List& list, const Key& key,
                                                         const Index& index, int low, int high,
                                                         Less less = {}) {
    return bsearch_sequence([&](int i) -> decltype(auto) { return list[index[i]]; }, key, low, high,
                            less);
}

template <typename List, typename Key, typename Index, typename Less = element_order_3>
requires(is_list_3<List>&& is_list_3<Index>) int bsearch(const List& list, const Key& key,
                                                         const Index& index, Less less = {}) {
    if (index.n == 0) return not_found;
    return bsearch(list, key, index, index.first(), index.last(), less);
}

/// What locate and nearest need to know of a sorted list and the value they look for.
class B_cmp_w_3 {
public:
    /// Not 0 if the value comes after the element with this index.
    virtual int less_than_key(int) const { return 0; }
    /// How far the element with this index is from the value; the sign is free.
    virtual double distance(int) const { return 0.0; }
    virtual int first_index() const { return 0; }
    virtual int last_index() const { return 0; }
};

/// The comparison for a list and a key, which must outlive it.
template <typename C, typename V>
class cmp_w_4 : public B_cmp_w_3 {
public:
    cmp_w_4(const C& container, const V& key) : container_(&container), key_(&key) {}

    /// A NaN in the list counts as less than any key.
    int less_than_key(int i) const override { return !((*container_)[i] >= *key_); }
    int first_index() const override { return container_->first(); }
    int last_index() const override { return container_->last(); }

private:
    const C* container_;
    const V* key_;
};

using double_list_3 = list_n1_3<double>;

/// Finds the gap that a key falls into, between the elements `low` and `high`. On return they are
/// its two neighbours; for a key beyond either end both are the element at that end.
void locate(const B_cmp_w_3& cmp, int& low, int& high);

/// Locates the key and gives the closer neighbour, the upper one if both are equally far.
/// `distance` becomes the absolute value of cmp.distance() there.
int nearest(const B_cmp_w_3& cmp, double& distance, int& low, int& high);

/// Of a sorted list, the index of the first element from `from` on and of the last one below `to`.
/// False, and both stay as they are, if the list is empty or doesn't begin below `to`.
bool find_range(const double_list_3& list, double from, double to, int& first, int& last);
