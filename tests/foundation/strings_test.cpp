#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include "foundation/heap_watch.h"
#include "foundation/string_3.h"
#include "foundation/string_out.h"

namespace {

TEST(Strings, EmptyOnesShareOneByte) {
    string_3 a, b(""), c(b);
    b.append("");
    b.assign("", 1);
    b.assign("xyz", 0);
    b.assign_range("xyz", 0);
    b = a;
    for (const string_3* s : {&a, &b, &c}) {
        EXPECT_EQ(s->data, a.data);
        EXPECT_EQ(s->data[0], 0);
        EXPECT_EQ(s->capacity, 0);
        EXPECT_EQ(s->owned, 0);
    }
    EXPECT_EQ(a.last(), a.data);
}

TEST(Strings, BuffersAreOfTheExactSizeAndStay) {
    const std::string b90(90, 'b'), b100(100, 'b');
    const struct {
        const char* name;
        std::string text;
        int capacity;
        void (*run)(string_3& s, const char* b100);
    } rows[] = {
        // each row starts from "aaaa" in a buffer for 90 characters
        {"exact", b90, 91, [](string_3& s, const char* b) { s = b + 10; }},
        {"longer", b100, 101, [](string_3& s, const char* b) { s = b; }},
        {"own tail", "aa", 91, [](string_3& s, const char*) { s = s.data + 2; }},
        {"range", "xyz", 91, [](string_3& s, const char*) { s.assign_range("xyz!!", 3); }},
        {"longer range", b90 + "b", 92, [](string_3& s, const char* b) { s.assign_range(b, 91); }},
        {"count 0", "", 91, [](string_3& s, const char*) { s.assign("xyz", 0); }},
        {"append", "aaaaxy", 91, [](string_3& s, const char*) { s.append("xy"); }},
        {"append, exact", "aaaa" + b90.substr(4), 91,
         [](string_3& s, const char* b) { s.append(b + 14); }},
        {"append more", "aaaa" + b100, 105, [](string_3& s, const char* b) { s.append(b); }},
        {"copy", b100, 101, [](string_3& s, const char* b) { s = string_3(b); }},
        {"replace", std::string(8, 'b'), 91,
         [](string_3& s, const char*) { s.replace_all("a", "bb"); }}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const int failures = fail_each_request([&](std::size_t failing) {
            string_3 s(std::string(90, 'a').c_str());
            s.data[4] = 0;
            const char* buffer = s.data;
            const bool complete = survives(failing, [&] { row.run(s, b100.c_str()); });
            EXPECT_EQ(s.data, complete ? row.text : "aaaa");
            EXPECT_EQ(s.capacity, complete ? row.capacity : 91);
            EXPECT_EQ(s.owned, s.capacity);
            EXPECT_EQ(s.data == buffer, s.capacity == 91);
            return complete;
        });
        EXPECT_GE(failures, row.capacity == 91 ? 0 : 1);
    }
}

TEST(Strings, BorrowedTextIsReplacedNotFreed) {
    char text[] = "lent";
    string_3 s;
    s.borrow(text);
    s.append("er");
    EXPECT_EQ(s, "lenter");
    EXPECT_STREQ(text, "lent");
    s.borrow(text);
    s.assign("", 0);
    EXPECT_EQ(s.data, text);
    EXPECT_STREQ(text, "");
}

TEST(Strings, OperationsInPlace) {
    const struct {
        const char *name, *before, *after;
        void (*run)(string_3& s);
    } rows[] = {{"lower", "AbZ[@\xc4", "abz[@\xc4", [](string_3& s) { s.to_lower(); }},
                {"replace char", "abca", "bbcb", [](string_3& s) { s.replace_char('a', 'b'); }},
                {"remove first", "abc", "bc", [](string_3& s) { s.remove_first(); }},
                {"remove first of none", "", "", [](string_3& s) { s.remove_first(); }},
                {"remove chars", "- a/b c-", "abc", [](string_3& s) { s.remove_chars("/ -"); }},
                {"prepend", "abc", "xyabc", [](string_3& s) { s.prepend("xy"); }},
                {"quote", "a b", "\"a b\"", [](string_3& s) { s.quote(); }},
                {"unquote", "\"a b\"", "a b", [](string_3& s) { s.unquote(); }},
                {"unquote one quote", "\"", "", [](string_3& s) { s.unquote(); }},
                {"unquote opening", "\"a", "a", [](string_3& s) { s.unquote(); }},
                {"unquote closing", "a\"", "a\"", [](string_3& s) { s.unquote(); }}};
    for (const auto& row : rows) {
        string_3 s(row.before);
        row.run(s);
        EXPECT_STREQ(s.data, row.after) << row.name;
    }
    string_3 s("a:b:c");
    s.replace_char(':', '\0');
    EXPECT_EQ(std::string(s.data, 6), std::string("a\0b\0c\0", 6));
}

TEST(Strings, ReplaceAllGoesOnUntilNothingIsFound) {
    const struct {
        const char *text, *what, *with, *result;
        int count;
    } rows[] = {{"abcabc", "bc", "x", "axax", 2},
                {"aab", "ab", "b", "b", 2},   // the first pass makes a new occurrence
                {"aaaa", "aa", "a", "a", 3},  // two, then one
                {"aaab", "aab", "", "a", 1},  // a match that begins inside a failed one
                {"abc", "abcd", "", "abc", 0},
                {"abc", "", "x", "abc", 0},
                {"aaa", "a", "", "", 3}};
    for (const auto& row : rows) {
        string_3 s(row.text);
        EXPECT_EQ(s.replace_all(row.what, row.with), row.count) << row.text;
        EXPECT_STREQ(s.data, row.result) << row.text;
    }
}

TEST(Strings, SortedLookup) {
    string_list_3 list;
    for (int n = 0; n < 9; ++n) {
        for (const char* key : {"", "10", "51", "x"}) EXPECT_EQ(find_sorted(list, key), not_found);
        list.add(string_3(n + 1));
        for (int i = 0; i <= n; ++i) EXPECT_EQ(find_sorted(list, list[i].data), i);
    }
}

TEST(TextBuffer, GrowthAndFailures) {
    const std::string t200(200, 't');
    const struct {
        const char* name;
        int filled;  // characters that the buffer holds before
        int length, capacity;
        void (*run)(string_out& out, const char* t200);
    } rows[] = {{"200", 0, 200, 402, [](string_out& a, const char* t) { a << t; }},
                {"char", 127, 128, 256, [](string_out& a, const char*) { a << 't'; }},
                {"text of one", 127, 128, 258, [](string_out& a, const char*) { a << "t"; }},
                {"add", 100, 200, 201, [](string_out& a, const char*) { a.add(a); }},
                {"set_length", 5, 300, 301, [](string_out& a, const char*) { a.set_length(300); }},
                {"extend", 100, 128, 258, [](string_out& a, const char*) { a.extend(28); }},
                {"reset", 200, 0, 1, [](string_out& a, const char*) { a.reset(); }},
                {"pop", 200, 199, 402, [](string_out& a, const char*) { a.pop(); }},
                {"separate", 127, 128, 256, [](string_out& a, const char*) { a.separate(); }},
                {"separate none", 0, 0, 128, [](string_out& a, const char*) { a.separate(); }}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        fail_each_request([&](std::size_t failing) {
            string_out out;
            out << t200.substr(0, static_cast<std::size_t>(row.filled)).c_str();
            const bool complete = survives(failing, [&] { row.run(out, t200.c_str()); });
            const int length = complete ? row.length : row.filled;
            EXPECT_EQ(out.length(), length);
            EXPECT_EQ(out.n, length + 1);
            EXPECT_EQ(out.p[length], 0);
            EXPECT_TRUE(!complete || out.n_max == row.capacity) << out.n_max;
            const auto kept = static_cast<std::size_t>(std::min(row.filled, length));
            EXPECT_EQ(t200.compare(0, kept, out.p, kept), 0);
            return complete;
        });
    }
    EXPECT_EQ(string_out(120).n_max, 120);
}

TEST(TextBuffer, Pieces) {
    string_out out;
    EXPECT_EQ(out.last(), 0);
    out.separate();
    out << 'a';
    EXPECT_EQ(out.second_last(), 0);
    out << -5;
    out.separate();
    out.separate();
    out << string_3("x") << char_range_3{out.p, out.p + 1};
    EXPECT_STREQ(out.text(), "a-5 xa");
    EXPECT_EQ(out.second_last(), 'x');
    out.clear();
    EXPECT_STREQ(out.text(), "");
}

}  // namespace
