#include "reflections/hkl_file.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "foundation/heap_3.h"
#include "foundation/platform.h"
#include "support/expect_failure.h"
#include "support/scratch_dir.h"
#include "support/sg_text.h"

namespace {

TEST(HklFile, Bytes) {
    const scratch_dir dir;
    write_file("group.sg", sg_text_of("x,y,z"));
    write_hkl_file_3("group.sg", "group.hkl", 1, 1, 1);
    EXPECT_EQ(read_file("group.hkl"),
              "hkls 1 1 1\n{\n"
              "    0    0    1    2\n    0    1   -1    2\n    0    1    0    2\n"
              "    0    1    1    2\n    1   -1   -1    2\n    1   -1    0    2\n"
              "    1   -1    1    2\n    1    0   -1    2\n    1    0    0    2\n"
              "    1    0    1    2\n    1    1   -1    2\n    1    1    0    2\n"
              "    1    1    1    2\n}");
    write_hkl_file_3("group.sg", "group.hkl", 3, -2147483647 - 1, 1);
    EXPECT_EQ(read_file("group.hkl"), "hkls 3 -2147483648 1\n{\n}");
}

// Numbers keep to their columns up to 9999 and -999, and widen a row beyond that.
TEST(HklFile, NumbersOfAnyWidth) {
    const scratch_dir dir;
    write_file("group.sg", sg_text_of("x,y,z"));
    write_hkl_file_3("group.sg", "group.hkl", 1, 0, 10001);
    const std::vector<std::string> lines = split(read_file("group.hkl"), '\n');
    ASSERT_EQ(lines.size(), 2u + 10001 + 20003 + 1);
    for (int place = 0; place < 30004; ++place) {
        const int h = place < 10001 ? 0 : 1;
        const int l = h == 0 ? place + 1 : place - 20002;
        char expected[64];
        std::snprintf(expected, sizeof expected, " %4d %4d %4d %4d", h, 0, l, 2);
        ASSERT_EQ(lines[static_cast<std::size_t>(place) + 2], expected);
    }
}

TEST(HklFile, FailuresLeaveAnOldFileAlone) {
    const scratch_dir dir;
    const std::string p1 = sg_text_of("x,y,z");
    const struct {
        std::string text;
        int limit;
        const char* message;
    } rows[] = {{"", 1, " Cannot find: xyzs"},
                {p1.substr(0, p1.find("0kl")), 1, " Cannot find: 0kl"},
                {p1 + " /*", 1, " Unclosed comment block"},
                {p1, 99999, " Index limits too large"},
                {sg_text_of("x,y,z;x,y,z"), 4000, " Index limits too large"}};
    write_file("group.hkl", "old");
    EXPECT_FAILURE(write_hkl_file_3("no.sg", "group.hkl", 1, 1, 1), " Cannot open file no.sg");
    for (const auto& row : rows) {
        write_file("group.sg", row.text);
        EXPECT_FAILURE(write_hkl_file_3("group.sg", "group.hkl", row.limit, row.limit, row.limit),
                       row.message);
        EXPECT_EQ(read_file("group.hkl"), "old") << row.text;
    }
    const std::string path = std::string("no") + platform_separator + "group.hkl";
    EXPECT_FAILURE(write_hkl_file_3("group.sg", path.c_str(), 1, 1, 1),
                   " Cannot open file " + path);
}

// Whichever request for memory fails, on either road.
TEST(HklFile, OldFileStaysWhenMemoryRunsOut) {
    static int left = 0;
    const scratch_dir dir;
    write_file("group.sg", sg_text_of(operators_of("P 63/m")));
    for (const hkl_road_3 road : {hkl_road_3::any, hkl_road_3::grid}) {
        bool failed = true;
        int requests = 0;
        for (; failed; ++requests) {
            write_file("group.hkl", "old");
            left = requests;
            the_heap().before_alloc = [](std::size_t) {
                if (left-- == 0) throw std::bad_alloc();
            };
            try {
                write_hkl_file_3("group.sg", "group.hkl", 8, 8, 8, road);
                failed = false;
            } catch (const std::bad_alloc&) {
            } catch (except_3* too_large) {  // the grid
                delete too_large;
            }
            the_heap().before_alloc = nullptr;
            const std::string expected = failed ? "old" : read_file("group.hkl");
            ASSERT_EQ(read_file("group.hkl"), expected) << requests;
        }
        EXPECT_GT(requests, 50);
        EXPECT_GT(read_file("group.hkl").size(), 2000U);
    }
}

using row_array = std::array<int, 4>;

std::vector<row_array> sorted(const std::vector<row_array>& rows) {
    row_list_3 list;
    for (const row_array& row : rows) list.add({row[0], row[1], row[2], row[3]});
    sort_rows_3(list);
    std::vector<row_array> result;
    for (const hkl_row_3& row : list) result.push_back({row.h, row.k, row.l, row.multiplicity});
    return result;
}

// Rows in every kind of disorder, those of a generator among them: runs backward in l, swapped
// blocks of k, an h out of turn.
TEST(SortRows, AnyOrder) {
    constexpr int orders[][3] = {{1, 2, 3},  {-1, -2, -3}, {1, 2, -3},
                                 {1, -2, 3}, {1, 3, 2},    {2, 1, 3}};  // keys; - is downward
    std::mt19937 random(5);
    for (int spread : {1, 40, 1 << 30}) {
        for (int count : {0, 1, 2, 300, 3000}) {
            std::set<row_array> distinct;
            std::uniform_int_distribution<int> index(-spread, spread);
            for (int i = 0; i < count; ++i) {
                distinct.insert({index(random), index(random), index(random), 0});
            }
            std::vector<row_array> rows(distinct.begin(), distinct.end());
            for (std::size_t i = 0; i < rows.size(); ++i) rows[i][3] = static_cast<int>(i);
            const std::vector<row_array> ascending = rows;
            for (const auto& order : orders) {
                std::sort(rows.begin(), rows.end(), [&](const row_array& a, const row_array& b) {
                    for (const int key : order) {
                        const auto i = static_cast<unsigned>(std::abs(key) - 1);
                        if (a[i] != b[i]) return (a[i] < b[i]) == (key > 0);
                    }
                    return false;
                });
                EXPECT_EQ(sorted(rows), ascending);
            }
            std::shuffle(rows.begin(), rows.end(), random);
            EXPECT_EQ(sorted(rows), ascending);
        }
    }
}

}  // namespace
