#include "catalogue/point_group_table_3.h"

#include "foundation/except_3.h"
#include "foundation/sorted.h"

namespace {

struct text_pair {
    const char* first;
    const char* second;
};

constexpr text_pair point_groups[] = {
    {"1", "p1a"},
    {"-1", "i1a"},
    {"2", "p2b"},
    {"m", "i2b"},
    {"2/m", "i1a p2b"},
    {"222", "p2c p2a"},
    {"mm2", "p2c i2a"},
    {"mmm", "p1a p2c p2a"},
    {"4", "p4c"},
    {"-4", "i4c"},
    {"4/m", "i1a p4c"},
    {"422", "p4c p2a"},
    {"4mm", "p4c i2a"},
    {"-42m", "i4c p2a"},
    {"-4m2", "i4c p2d"},
    {"4/mmm", "p1a p4c p2a"},
    {"3 1", "p3c"},
    {"3 2", "p3q"},
    {"-3 1", "i3c"},
    {"-3 2", "i3q"},
    {"32 13", "p3c p2f"},
    {"32 14", "p3c p2g"},
    {"32 2", "p3q p2e"},
    {"3m 15", "p3c i2f"},
    {"3m 16", "p3c i2g"},
    {"3m 2", "p3q i2e"},
    {"-3m 17", "i3c p2f"},
    {"-3m 18", "i3c p2g"},
    {"-3m 2", "i3q p2e"},
    {"6", "p6c"},
    {"-6", "i6c"},
    {"6/m", "i1a p6c"},
    {"622", "p6c p2f"},
    {"6mm", "p6c i2f"},
    {"-62m", "i6c p2f"},
    {"-6m2", "i6c p2g"},
    {"6/mmm", "i1a p6c p2f"},
    {"23", "p3q p3c p2a"},
    {"m-3", "i3q p2c p2a"},
    {"432", "p3q p4c p2d"},
    {"-43m", "p3q i4c i2d"},
    {"m-3m", "i3q p4c p2d"},
};

constexpr text_pair replacements[] = {
    {"s1", ""},    {"s2", ""},    {"rs", ""},      {"hr", ""},     {"s", ""},      {"z", ""},
    {"r", ""},     {"_", ""},     {"a", "m"},      {"b", "m"},     {"c", "m"},     {"n", "m"},
    {"d", "m"},    {"11", ""},    {"21", "2"},     {"12", "2"},    {"m1", "m"},    {"1m", "m"},
    {"-2", "2"},   {"31", "3"},   {"41", "4"},     {"61", "6"},    {"63", "6"},    {"64", "6"},
    {"65", "6"},   {"42/", "4/"}, {"42mm", "4mm"}, {"m2m", "mm2"}, {"2mm", "mm2"}, {"4222", "422"},
    {"42", "4"},   {"33", "3"},   {"43", "4"},     {"322", "32"},  {"62", "6"},    {"6222", "622"},
    {"m3", "m-3"},
};

}  // namespace

point_group_table_3::point_group_table_3() {
    for (const text_pair& row : point_groups) {
        names.add(row.first);
        generators.add(row.second);
        keys.add() = row.first;
        keys[keys.last()].replace_char(' ', 0);
    }
    int_list_3 index;
    sort_index(names, index);
    apply_index(names, index);
    apply_index(generators, index);
    apply_index(keys, index);
}

bool point_group_table_3::rewrite() {
    for (const text_pair& row : replacements) {
        if (work.replace_all(row.first, row.second) != 0 && is_key()) return true;
    }
    return false;
}

void point_group_table_3::lookup(const char* symbol) {
    work = *symbol == 0 ? symbol : symbol + 1;
    work.to_lower();
    work.replace_char(':', 0);
    work.replace_char('h', 0);
    // A replacement may take a pass for each character, so that the work grows with the square of
    // the length. No name of use comes near this one.
    if (work.length() > 4096) fail_with("Invalid point group");
    if (!is_key() && !rewrite()) fail_with("Invalid point group");
    normalised_ = work;
}
