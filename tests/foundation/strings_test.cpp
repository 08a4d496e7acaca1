#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "foundation/heap_watch.h"
#include "foundation/string_3.h"
#include "foundation/string_out.h"

namespace {

TEST(Strings, EmptyOnesShareOneByte) {
    string_3 a, b(""), c(b);
    b.append("");
    b.assign_range("xyz", 0);
    EXPECT_EQ(b.data, a.data);
    EXPECT_EQ(c.data, a.data);
    EXPECT_EQ(a.data[0] + a.owned + b.owned + c.owned, 0);
}

TEST(Strings, BuffersAreOfTheExactSizeAndStay) {
    const std::string b90(90, 'b'), b100(100, 'b');
    const struct {
        std::string text;
        int capacity;
        void (*run)(string_3& s, const char* b100);
    } rows[] = {
        // each row starts from "aaaa" in a buffer for 90 characters
        {"", 91, [](string_3& s, const char*) { s = ""; }},
        {b100, 101, [](string_3& s, const char* b) { s = b; }},
        {"aa", 91, [](string_3& s, const char*) { s = s.data + 2; }},
        {b90 + "b", 92, [](string_3& s, const char* b) { s.assign_range(b, 91); }},
        {"aaaa" + b90.substr(4), 91, [](string_3& s, const char* b) { s.append(b + 14); }},
        {"aaaa" + b100, 105, [](string_3& s, const char* b) { s.append(b); }},
        {std::string(8, 'b'), 91, [](string_3& s, const char*) { s.replace_all("a", "bb"); }}};
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
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

TEST(Strings, OperationsInPlace) {
    const struct {
        const char *before, *after;
        void (*run)(string_3& s);
    } rows[] = {{"AbZ[@\xc4", "abz[@\xc4", [](string_3& s) { s.to_lower(); }},
                {"", "", [](string_3& s) { s.remove_first(); }},
                {"-a.,!/b\xf1 \xf0-", "a.,!b\xf1", [](string_3& s) { s.remove_chars("/ -\xf0"); }},
                {"a b", "\"a b\"", [](string_3& s) { s.quote(), s.quote(); }},
                {"\"a b\"", "a b", [](string_3& s) { s.unquote(); }},
                {"\"", "", [](string_3& s) { s.unquote(); }},
                {"\"a", "a", [](string_3& s) { s.unquote(); }},
                {"a\"", "a\"", [](string_3& s) { s.unquote(); }},
                {"ab", "abab", [](string_3& s) { s.append(s.data); }},
                {"aaaa", "a", [](string_3& s) { EXPECT_EQ(s.replace_all("aa", "a"), 3); }},
                {"aaabcd", "aax", [](string_3& s) { s.replace_all(s.data + 2, "x"); }},
                {"aabc", "bcbcbc", [](string_3& s) { s.replace_all("a", s.data + 2); }},
                // a match that begins inside a failed one
                {"aaab", "a", [](string_3& s) { EXPECT_EQ(s.replace_all("aab", ""), 1); }}};
    for (const auto& row : rows) {
        string_3 s(row.before);
        row.run(s);
        EXPECT_STREQ(s.data, row.after) << row.before;
    }
    char lent[] = "a:b:c";
    for (const auto change :
         {+[](string_3& s) { s.remove_chars("a:"); }, +[](string_3& s) { s.replace_all(":", ""); },
          +[](string_3& s) { s.replace_all("none", ""); }}) {
        string_3 borrower;
        borrower.data = lent;
        change(borrower);
        EXPECT_EQ(borrower.owned, borrower.length() + 1) << "a copy";
        EXPECT_STREQ(lent, "a:b:c");
    }
    string_3 s;
    s.data = lent;
    s.replace_char(':', '\0');
    s.append("xy");  // to a copy of what was lent
    EXPECT_EQ(s, "axy");
    EXPECT_EQ(std::string(lent, 6), std::string("a\0b\0c\0", 6));
}

TEST(TextBuffer, Growth) {
    // what a buffer of `filled` characters holds after an operation: characters and capacity
    const auto after = [](std::size_t filled, auto operation) {
        const std::string text(filled, 't');
        string_out out;
        out << text.c_str();
        operation(out);
        const auto kept = std::min(filled, std::strlen(out.p));
        EXPECT_EQ(text.compare(0, kept, out.p, kept), 0);
        EXPECT_EQ(out.p[out.length()], 0);
        return std::vector{out.length(), out.n_max};
    };
    using lengths = std::vector<int>;
    EXPECT_EQ(after(127, [](string_out& a) { a << 't'; }), (lengths{128, 256}));
    EXPECT_EQ(after(100, [](string_out& a) { a.add(a); }), (lengths{200, 201}));
    EXPECT_EQ(after(100, [](string_out& a) { a << a.text() + 1; }), (lengths{199, 400}));
    EXPECT_EQ(after(5, [](string_out& a) { a.set_length(300); }), (lengths{300, 301}));
    EXPECT_EQ(after(100, [](string_out& a) { a.extend(28); }), (lengths{128, 258}));
    EXPECT_EQ(after(200, [](string_out& a) { a.reset(); }), (lengths{0, 1}));
    EXPECT_EQ(after(200, [](string_out& a) { a.pop(); }), (lengths{199, 402}));
    EXPECT_EQ(after(0, [](string_out& a) { a.pop(); }), (lengths{0, 128}));
    EXPECT_EQ(after(127, [](string_out& a) { a.separate(); }), (lengths{128, 256}));
    EXPECT_EQ(after(0, [](string_out& a) { a.separate(); }), (lengths{0, 128}));
}

}  // namespace
