#pragma once

#include <cstddef>
#include <cstring>
#include <limits>
#include <new>
#include <type_traits>

// What the containers of ctr_3.h are put together from: the kinds of elements, how elements are
// compared, moved and copied, how a full list grows, and the two records.

template <typename T>
inline constexpr bool is_plain_element =
    std::is_trivially_default_constructible_v<T>&& std::is_trivially_copyable_v<T>;

template <typename T>
inline constexpr bool is_object_element = !std::is_trivially_destructible_v<T>;

// Equality and order of elements. A type with an order of its own overloads these two beside its
// definition; numbers and pointers use the operators of the language.

template <typename T>
bool element_equal(const T& a, const T& b) {
    return a == b;
}

template <typename T>
bool element_less(const T& a, const T& b) {
    return a < b;
}

/// Moves the value of `from` into `to`: a type with a `take` operation hands over what it owns.
template <typename T>
void move_element(T& to, T& from) {
    if constexpr (requires { to.take(from); }) {
        to.take(from);
    } else {
        to = from;
    }
}

/// How a full list grows: to 8 elements, then by doubling.
template <typename T>
struct n_added_3 {
    /// The new capacity for a list of `n` elements. Throws std::bad_alloc above 2^31 - 1.
    static int grown(int n) { return n == 0 ? 8 : doubled(n); }
    static int doubled(int n) {
        if (n > std::numeric_limits<int>::max() / 2) throw std::bad_alloc();
        return 2 * n;
    }
    static int added(int n, int k) {
        if (k > std::numeric_limits<int>::max() - n) throw std::bad_alloc();
        return n + k;
    }
};

/// How lists copy elements: all bytes at once, or one by one where an element owns something.
template <typename T, typename U>
struct mem_copy_3 : n_added_3<T> {
    static void copy(T* to, const U* from, int n) {
        if (n < 1) return;
        if constexpr (std::is_trivially_copyable_v<T>) {
            std::memcpy(static_cast<void*>(to), from, static_cast<std::size_t>(n) * sizeof(T));
        } else {
            for (int i = 0; i < n; ++i) to[i] = from[i];
        }
    }
};

/// The record of a list whose indices run from 0.
template <typename T, typename U, typename C>
struct ctr_base_0_3 : C {
    T* p = nullptr;  ///< element 0; not read while n_max is 0
    int n_max = 0;   ///< for how many elements there is room; without a block 0
    int n = 0;       ///< elements in use

    static constexpr bool has_base = false;
    static constexpr int first_index() { return 0; }
    T* block() const { return p; }
    void hold_block(T* start) { p = start; }
};

/// The record of a list whose indices run from `base`.
template <typename T, typename U, typename C>
struct ctr_base_n1_3 : C {
    T* p = nullptr;  ///< the block less `base` elements, so that element i is p[i]
    int n_max = 0;
    int n = 0;
    int base = 0;  ///< index of the first element

    static constexpr bool has_base = true;
    int first_index() const { return base; }
    T* block() const { return moved(p, base); }
    void hold_block(T* start) { p = moved(start, -std::ptrdiff_t{base}); }

    /// Renumbers the elements from `b` on; none of them moves in memory.
    void set_base(int b) {
        if (n_max != 0) p = moved(p, std::ptrdiff_t{base} - b);
        base = b;
    }

private:
    // The biased address may lie outside the block, where pointer arithmetic is not defined.
    static T* moved(T* pointer, std::ptrdiff_t elements) {
        const auto bytes = static_cast<std::size_t>(elements) * sizeof(T);
        return reinterpret_cast<T*>(reinterpret_cast<std::size_t>(pointer) + bytes);
    }
};
