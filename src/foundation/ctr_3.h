#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <type_traits>
#include <utility>

#include "foundation/ctr_base_3.h"
#include "foundation/memory.h"
#include "foundation/not_found.h"

// Growable arrays, the only containers used here. A list is put together from small templates:
//
//     vec_3         numbers: totals
//     ctr_obj_3     any element, objects with destructors included
//     ctr_3         all operations
//     ctr_base_...  the record: with indices from 0, or with a movable first index
//     mem_copy_3    how elements are copied
//     n_added_3     how a full list grows
//
// Elements are in one block from the block heap. Nothing checks an index. Three kinds of
// elements are distinguished by their type alone:
//
//     plain        no constructor: a new element starts with stray bytes
//     constructed  a constructor, but nothing to destroy: run when the block is made, for all of
//                  its elements; after that an element keeps its value, in use or not
//     objects      with a destructor: built and destroyed with the capacity; when a list grows,
//                  each hands over what it owns (its `take`), so that no inner block is copied

/// The operations of a list, over the fields that B brings. Indices and counts are of type int; a
/// list that would outgrow it, or memory, throws std::bad_alloc. It stays as it was then, but new_n
/// and read_binary, which release the block first, leave it empty, and fill and copy_overlap keep
/// what they have done so far.
template <typename T, typename U, typename B>
class ctr_3 : public B {
    static_assert(alignof(T) <= 8, "blocks are aligned to 8 bytes");
    static_assert(is_plain_element<T> || std::is_nothrow_default_constructible_v<T>);

public:
    using value_type = T;
    using B::n;
    using B::n_max;
    using B::p;

    ctr_3() = default;
    ctr_3(const ctr_3& other) : B() { assign(other); }
    ctr_3(ctr_3&& other) noexcept : B() { take(other); }
    ctr_3& operator=(const ctr_3& other) {
        assign(other);
        return *this;
    }
    ctr_3& operator=(ctr_3&& other) noexcept {
        if (this != &other) take(other);
        return *this;
    }
    ~ctr_3() { release(); }

    T& operator[](int i) { return p[i]; }
    const T& operator[](int i) const { return p[i]; }

    /// The elements in use, in order, for a range-based loop.
    T* begin() { return n_max == 0 ? nullptr : this->block(); }
    T* end() { return n_max == 0 ? nullptr : this->block() + n; }
    const T* begin() const { return n_max == 0 ? nullptr : this->block(); }
    const T* end() const { return n_max == 0 ? nullptr : this->block() + n; }

    int first() const { return this->first_index(); }
    int last() const { return this->first_index() + (n - 1); }
    int count() const { return n; }

    // Capacity and count

    /// Makes the capacity exactly `m`; below 1 it releases the block. `keep` saves the elements
    /// that still fit. Call it only where `n` is set next: this doesn't adapt it.
    void set_max_n(int m, bool keep);

    /// Changes the count to `m` and keeps what is there. A capacity that is too small becomes
    /// exactly `m`; one that is larger stays.
    void set_n(int m) {
        if (m > n_max) set_max_n(m, true);
        n = m;
    }

    /// As set_n, but when the list grows its old elements are lost.
    void set_n_discard(int m) {
        if (m > n_max) set_max_n(m, false);
        n = m;
    }

    /// Makes a new list of `m` elements with a first index of 0. The old block is freed first: if
    /// memory runs out, the list is empty.
    void new_n(int m) {
        clear();
        set_max_n(m, false);
        n = m < 1 ? 0 : m;
    }

    /// Makes a new list of `m` elements of zero bytes, with room for no more. Only for plain
    /// elements.
    void new_n_zero(int m) requires is_plain_element<T> {
        set_max_n(m, false);
        n = m < 1 ? 0 : m;
        zero_fill();
    }

    /// Becomes as long as `other`, without spare room and with indices from 0, but doesn't get its
    /// elements. An empty `other` clears the list.
    template <typename Other>
    void set_like(const Other& other) {
        if (other.n == 0) return clear();
        set_max_n(other.n, false);
        if constexpr (B::has_base) this->set_base(0);
        n = other.n;
    }

    /// As set_like, with all elements set to zero bytes.
    template <typename Other>
    void set_like_zero(const Other& other) requires is_plain_element<T> {
        set_like(other);
        zero_fill();
    }

    /// As set_like, with the first index of `other`.
    template <typename Other>
    void set_like_base(const Other& other) requires B::has_base {
        set_like(other);
        this->set_base(other.first_index());
    }

    /// Adds `k` elements at the end. If the list must grow, it makes room for twice the new count.
    void add_n(int k) {
        const int m = this->added(n, k);
        if (m > n_max) set_max_n(this->doubled(m), true);
        n = m;
    }

    /// Releases the block; count, capacity and first index become 0.
    void clear() {
        release_all();
        if constexpr (B::has_base) this->base = 0;
    }

    // Adding and taking away

    /// Makes room for one more element at the end and returns it. It holds what the block held: an
    /// element that was in use before has its old value.
    T& add() {
        if (n == n_max) set_max_n(this->grown(n), true);
        ++n;
        return this->block()[n - 1];
    }

    void add(const T& value) {
        if (n == n_max) {
            T copy(value);  // the value may be in the block that is released
            move_element(add(), copy);
        } else {
            this->block()[n] = value;  // may throw: the count rises only after it
            ++n;
        }
    }

    /// Inserts before the element with index `i`, or appends when there is none.
    void insert_at(const T& value, int i);

    /// Removes the element with index `i`; those after it move down, the capacity stays.
    void remove_at(int i);

    /// Appends copies of the elements of `other`; the capacity grows exactly.
    template <typename Other>
    void append(const Other& other) {
        const int k = other.n;
        if (k == 0) return;
        const int m = this->added(n, k);
        if (m > n_max) set_max_n(m, true);
        this->copy(this->block() + n, other.block(), k);
        n = m;
    }

    /// Drops every element i for which flags[i] isn't 0; the others keep their order.
    template <typename Flags>
    void remove_flagged(const Flags& flags);

    /// Sets all elements to `value`.
    void fill(const T& value) {
        for (T& element : *this) element = value;
    }

    // Copying

    /// Becomes a copy of `other`, first index included. The block is reused exactly when the
    /// counts are equal. An empty `other` empties the list, which keeps its first index.
    void assign(const ctr_3& other);

    /// Overwrites element i with other[i] for each index i in both lists.
    void copy_overlap(const ctr_3& other) {
        overlap(other, [](T& to, const T& from) { to = from; });
    }

    /// As copy_overlap, but what the elements of `other` own moves over and isn't copied.
    void move_overlap(ctr_3& other) requires is_object_element<T> {
        overlap(other, [](T& to, T& from) { move_element(to, from); });
    }

    /// Takes over the block of `other`, which is left empty, with its first index.
    void take(ctr_3& other) noexcept {
        release();
        static_cast<B&>(*this) = other;
        other.n_max = 0;
        other.n = 0;
    }

    // Comparing

    /// Whether the lists hold the same values in the same order, wherever their indices begin.
    bool equal(const ctr_3& other) const;

    /// An order for lists: shorter before longer, lists of one length element by element.
    bool less(const ctr_3& other) const;

    /// The index of the first element equal to `value`, or not_found. Looks at one element after
    /// another.
    template <typename V>
    int find(const V& value) const {
        for (int k = 0; k < n; ++k) {
            if (element_equal(this->block()[k], value)) return first() + k;
        }
        return not_found;
    }

    /// Becomes the list that `in` holds next: an int for its length, an int for its first index,
    /// the bytes of the elements. Elements for which the bytes run out are 0. `in` has
    /// read_list_head(list) and read_bytes(address, size).
    template <typename In>
    void read_binary(In& in) requires is_plain_element<T> {
        const int m = in.read_list_head(*this);
        if (m == 0) return;
        set_max_n(m, false);
        n = m;
        zero_fill();
        in.read_bytes(this->block(), byte_count(m));
    }

private:
    static std::size_t byte_count(int m) { return static_cast<std::size_t>(m) * sizeof(T); }

    void zero_fill() {
        if (n > 0) std::memset(static_cast<void*>(this->block()), 0, byte_count(n));
    }

    static T* make_block(int m) {
        T* block = static_cast<T*>(alloc_block(byte_count(m)));
        if constexpr (!is_plain_element<T>) {
            for (int i = 0; i < m; ++i) ::new (static_cast<void*>(block + i)) T;
        }
        return block;
    }

    static void free_elements(T* block, int m) {
        if constexpr (is_object_element<T>) {
            while (m > 0) block[--m].~T();
        }
        static_cast<void>(m);
        free_block(block);
    }

    void release() {
        if (n_max != 0) free_elements(this->block(), n_max);
    }

    void release_all() {
        release();
        n_max = 0;
        n = 0;
    }

    template <typename Other, typename Step>
    void overlap(Other& other, Step step) {
        if (n == 0 || other.n == 0) return;
        const int from = first() > other.first() ? first() : other.first();
        const int to = last() < other.last() ? last() : other.last();
        for (std::int64_t i = from; i <= to; ++i) step(p[i], other.p[i]);
    }
};

template <typename T, typename U, typename B>
void ctr_3<T, U, B>::set_max_n(int m, bool keep) {
    if (m < 1) return clear();
    if (m == n_max) return;
    T* fresh = make_block(m);
    if (n_max != 0) {
        T* old = this->block();
        if (keep) {
            const int most = m < n_max ? m : n_max;
            const int used = n < most ? n : most;
            if constexpr (is_object_element<T>) {
                for (int i = 0; i < used; ++i) move_element(fresh[i], old[i]);
            } else {
                this->copy(fresh, old, is_plain_element<T> ? most : used);
            }
        }
        free_elements(old, n_max);
    }
    n_max = m;
    this->hold_block(fresh);
}

template <typename T, typename U, typename B>
void ctr_3<T, U, B>::insert_at(const T& value, int i) {
    if (n == 0 || i > last()) return add(value);
    T copy(value);
    add();
    for (int k = last(); k > i; --k) move_element(p[k], p[k - 1]);
    move_element(p[i], copy);
}

template <typename T, typename U, typename B>
void ctr_3<T, U, B>::remove_at(int i) {
    for (int k = i; k < last(); ++k) move_element(p[k], p[k + 1]);
    --n;
}

template <typename T, typename U, typename B>
template <typename Flags>
void ctr_3<T, U, B>::remove_flagged(const Flags& flags) {
    T* const elements = begin();
    int kept = 0;
    for (int k = 0; k < n; ++k) {
        if (flags[first() + k] != 0) continue;
        if (kept != k) move_element(elements[kept], elements[k]);
        ++kept;
    }
    set_n(kept);
}

template <typename T, typename U, typename B>
void ctr_3<T, U, B>::assign(const ctr_3& other) {
    if (this == &other) return;
    if (other.n == 0) return release_all();
    if constexpr (!is_object_element<T>) {
        if (n == other.n) {
            if constexpr (B::has_base) this->set_base(other.base);
            return this->copy(this->block(), other.block(), n);
        }
    }
    // What is here goes only when the copy is complete.
    ctr_3 fresh;
    if constexpr (B::has_base) fresh.set_base(other.base);
    fresh.set_n(other.n);
    fresh.copy(fresh.block(), other.block(), fresh.n);
    if (n != other.n) return take(fresh);
    if constexpr (B::has_base) this->set_base(other.base);
    for (int k = 0; k < n; ++k) move_element(this->block()[k], fresh.block()[k]);
}

template <typename T, typename U, typename B>
bool ctr_3<T, U, B>::equal(const ctr_3& other) const {
    if (n != other.n) return false;
    if (n == 0) return true;
    if constexpr (is_plain_element<T>) {
        return std::memcmp(this->block(), other.block(), byte_count(n)) == 0;
    } else {
        for (int i = 0; i < n; ++i) {
            if (!element_equal(this->block()[i], other.block()[i])) return false;
        }
        return true;
    }
}

template <typename T, typename U, typename B>
bool ctr_3<T, U, B>::less(const ctr_3& other) const {
    if (n != other.n) return n < other.n;
    for (int i = 0; i < n; ++i) {
        const T& a = this->block()[i];
        const T& b = other.block()[i];
        if (element_less(a, b)) return true;
        if (element_less(b, a)) return false;
    }
    return false;
}

/// The list for any element, objects with destructors included.
template <typename T, typename B>
class ctr_obj_3 : public ctr_3<T, T, B> {};

/// A list of numbers with element-wise work in the scalar type `S`.
template <typename T, typename S, typename B>
class vec_3 : public ctr_obj_3<T, B> {
public:
    /// The total of all elements.
    S sum() const { return sum(this->first(), this->last()); }

    /// The total of the elements with the indices i to j inclusive.
    S sum(int i, int j) const {
        S total = 0;
        for (std::int64_t k = i; k <= j; ++k) total += static_cast<S>(this->p[k]);
        return total;
    }
};

/// The two forms that nearly all lists of the system have: indices from 0, and a movable start.
template <typename T>
using list_0_3 = ctr_obj_3<T, ctr_base_0_3<T, T, mem_copy_3<T, T>>>;
template <typename T>
using list_n1_3 = ctr_obj_3<T, ctr_base_n1_3<T, T, mem_copy_3<T, T>>>;

template <typename T, typename B>
bool element_equal(const ctr_obj_3<T, B>& a, const ctr_obj_3<T, B>& b) {
    return a.equal(b);
}

template <typename T, typename B>
bool element_less(const ctr_obj_3<T, B>& a, const ctr_obj_3<T, B>& b) {
    return a.less(b);
}
