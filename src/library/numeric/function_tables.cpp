#include "library/numeric/function_tables.h"

#include <cmath>
#include <new>

namespace {

template <typename V>
void delete_table(V* table) noexcept {
    table->~V();
    pool_delete(table, sizeof(V));
}

template <typename V>
V* new_table(int n) {
    V* const table = ::new (pool_new(sizeof(V))) V;
    try {
        table->set_n(n);
    } catch (...) {
        delete_table(table);
        throw;
    }
    return table;
}

template <typename Function>
void fill_entries(function_table_3& table, int from, double at_zero, Function function) {
    for (int i = from < 1 ? 1 : from; i < table.n; ++i) table[i] = function(static_cast<double>(i));
    table[0] = at_zero;
}

}  // namespace

template <typename V>
td_max_n_chk_3<V>::~td_max_n_chk_3() {
    for (V* table : tables) delete_table(table);
}

template <typename V>
void td_max_n_chk_3<V>::reset() {
    if (tables.n == 0) {
        tables.set_max_n(2, false);  // room for the table that table_for appends
        tables.add(new_table<V>(start_n()));
        fill(*tables[0], 0);
    }
    while (tables.n > 1) {
        delete_table(tables[0]);
        tables.remove_at(0);
    }
}

template <typename V>
const V& td_max_n_chk_3<V>::table_for(int n) {
    V* const old = tables[tables.last()];
    if (n <= old->n) return *old;
    constexpr int largest = 1 << 30;
    if (n >= largest) throw std::bad_alloc();
    int size = 2;
    while (size < n + 1) size *= 2;
    V* const fresh = new_table<V>(size);
    fresh->copy(fresh->p, old->p, old->n);
    fill(*fresh, old->n);
    tables.add(fresh);
    reset();
    return *fresh;
}

void td_1_on_x_soft_3::fill(function_table_3& table, int from) const {
    fill_entries(table, from, 0.0, [](double x) { return 1.0 / x; });
}

void td_sqrt_x_soft_3::fill(function_table_3& table, int from) const {
    fill_entries(table, from, 0.0, [](double x) { return std::sqrt(x); });
}

void td_1_on_sqrt_x_soft_3::fill(function_table_3& table, int from) const {
    fill_entries(table, from, 0.0, [](double x) { return 1.0 / std::sqrt(x); });
}

void td_ln_soft_3::fill(function_table_3& table, int from) const {
    fill_entries(table, from, -1e140, [](double x) { return std::log(x); });
}

template class td_max_n_chk_3<function_table_3>;

namespace {

// Built in this order at the start of the process.
td_1_on_x_soft_3 table_of_1_on_x;
td_sqrt_x_soft_3 table_of_sqrt_x;
td_1_on_sqrt_x_soft_3 table_of_1_on_sqrt_x;
td_ln_soft_3 table_of_ln;

}  // namespace

td_1_on_x_soft_3& td_1_on_x() { return table_of_1_on_x; }
td_sqrt_x_soft_3& td_sqrt_x() { return table_of_sqrt_x; }
td_1_on_sqrt_x_soft_3& td_1_on_sqrt_x() { return table_of_1_on_sqrt_x; }
td_ln_soft_3& td_ln() { return table_of_ln; }
