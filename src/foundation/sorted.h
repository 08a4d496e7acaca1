#pragma once

#include <cmath>

#include "foundation/ctr_3.h"
#include "foundation/not_found.h"

// Sorting and searching by index. Sorting moves indices, not elements: a heap sort, whose exact
// steps fix the order of equal elements. Elements are compared by element_less unless another
// order is given.

using int_list_3 = list_0_3<int>;

/// The order of elements by element_less.
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

/// Fills `index` with the indices of `list` such that the elements ascend in that order. The list
/// doesn't move. An index of the offset kind gets the first index of the list.
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

/// Rebuilds the list as its elements in the order of `index`, in a new block of exactly that
/// capacity. An empty index clears the list.
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

/// Gives the index of the first element of each run of equal elements, for a sorted `index` of a
/// list of at least one element. Elements are equal when neither comes before the other.
template <typename List, typename Index, typename Unique, typename Less = element_order_3>
void unique_index(const List& list, const Index& index, Unique& unique, Less less = {}) {
    if constexpr (Unique::has_base) unique.set_base(0);
    unique.set_n_discard(list.n);
    const int* positions = index.block();
    int runs = 0;
    for (int k = 0; k < index.n; ++k) {
        if (k == 0 || less(list[positions[k - 1]], list[positions[k]])) {
            unique[runs++] = positions[k];
        }
    }
    unique.set_n(runs);
}

/// As unique_index, with the length of each run in `count`.
template <typename List, typename Index, typename Unique, typename Count,
          typename Less = element_order_3>
void unique_count(const List& list, const Index& index, Unique& unique, Count& count,
                  Less less = {}) {
    if constexpr (Unique::has_base) unique.set_base(0);
    if constexpr (Count::has_base) count.set_base(0);
    unique.set_n_discard(list.n);
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

/// Sorts the list and keeps one element for each value. Fewer than 2 elements stay as they are.
template <typename List, typename Less = element_order_3>
void sort_unique(List& list, Less less = {}) {
    if (list.n < 2) return;
    int_list_3 index;
    int_list_3 unique;
    sort_index(list, index, less);
    unique_index(list, index, unique, less);
    apply_index(list, unique);
}

/// What group() finds: the sorted index, the first element and the length of each run of equal
/// elements, and the run that each element belongs to.
struct group_record_3 {
    int_list_3 index;
    int_list_3 unique;
    int_list_3 count;
    list_n1_3<int> group;
};

/// Groups equal elements. group[i] is the number of the run that element i belongs to; it is
/// indexed like the list.
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

/// The first and last position of each run in the sorted order. With no runs the lists stay.
template <typename First, typename Last>
void run_bounds(const group_record_3& record, First& first, Last& last) {
    if (record.unique.n == 0) return;
    first.set_n_discard(record.unique.n);
    last.set_n_discard(record.unique.n);
    int start = 0;
    for (int run = 0; run < record.unique.n; ++run) {
        first[run] = start;
        start += record.count[run];
        last[run] = start - 1;
    }
}

/// The smallest element number in each run. With no runs `out` is cleared.
template <typename Out>
void run_minima(const group_record_3& record, Out& out) {
    if (record.unique.n == 0) return out.clear();
    out.set_n_discard(record.unique.n);
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

/// The same over a list that is sorted by `index`: gives the position in `index`.
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

/// A comparison of the elements of a sorted list with a key.
class B_cmp_w_3 {
public:
    /// Whether element `i` is below the key.
    virtual int less_than_key(int) const { return 0; }
    /// The signed distance of element `i` from the key.
    virtual double distance(int) const { return 0.0; }
    virtual int first_index() const { return 0; }
    virtual int last_index() const { return 0; }
};

/// Compares the elements of a container `C` with a value of type `V`. Neither is owned.
template <typename C, typename V>
class cmp_w_4 : public B_cmp_w_3 {
public:
    cmp_w_4(const C& container, const V& key) : container_(&container), key_(&key) {}

    /// True unless the element is at least the key, so that a NaN counts as below it.
    int less_than_key(int i) const override { return !((*container_)[i] >= *key_); }
    int first_index() const override { return container_->first(); }
    int last_index() const override { return container_->last(); }

private:
    const C* container_;
    const V* key_;
};

using double_list_3 = list_n1_3<double>;

/// Narrows `low` and `high` until they stand next to each other around the key, or are equal when
/// the key lies outside the list.
void locate(const B_cmp_w_3& cmp, int& low, int& high);

/// Runs locate and gives the one of the two indices that is nearer to the key by distance(), and
/// that distance. With equal distances `high` wins.
int nearest(const B_cmp_w_3& cmp, double& distance, int& low, int& high);

/// The run of a sorted list that falls in the range from `from` to `to`. Gives false, with `first`
/// and `last` untouched, when the list is empty or `to` isn't above its first element.
bool find_range(const double_list_3& list, double from, double to, int& first, int& last);
