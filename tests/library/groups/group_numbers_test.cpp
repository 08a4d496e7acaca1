#include "library/groups/group_numbers.h"

#include <gtest/gtest.h>
#include <map>

#include "support/expect_failure.h"
#include "support/operators.h"
#include "support/own_process.h"
#include "support/scratch_dir.h"

namespace {

struct GroupNumbers : testing::Test {
    scratch_dir dir;
};

// The names of the setting that a number alone means lead to that number, unless they name
// an origin. The other settings have names of their own, or share those.
TEST_F(GroupNumbers, OfAllNames) {
    write_file("lomar5.txt", read_file(DATA_DIR "/lomar5.txt"));
    std::vector<std::vector<std::string>> names;  // each with its number and its setting
    std::map<std::string, std::string> main_settings;
    std::ifstream file(TEST_DATA_DIR "/names.tsv");
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        names.push_back(split(line, '\t'));
        const auto& [name, number, row] =
            std::tie(names.back()[0], names.back()[1], names.back()[2]);
        if (name == number) main_settings[number] = row;
    }
    EXPECT_EQ(main_settings.size(), 230U);
    for (const std::vector<std::string>& fields : names) {
        const std::string& name = fields[0];
        const int number = std::stoi(fields[1]);
        const int found = sg_number_of(name.c_str());
        const bool is_main = fields[2] == main_settings[fields[1]] && !name.ends_with(" S");
        EXPECT_TRUE(found == number || (found == 0 && !is_main)) << name << ' ' << found;
    }
    EXPECT_EQ(sg_name_table().first(), 1);
    const struct {
        const char* text;
        int number;
    } rows[] = {{" 9999", 9999}, {"225:2", 225}, {"P_21/", 0}, {"xyz", 0}, {"-3", 0}};
    for (const auto& row : rows) EXPECT_EQ(sg_number_of(row.text), row.number) << row.text;
    EXPECT_FAILURE(sg_number_of(" ( ) "), " No Spacegroup");
}

TEST_F(GroupNumbers, Catalogues) {
    vector_string_3 names;
    names.add("old");
    EXPECT_FAILURE(load_sg_names(names), " Cannot open file lomar5.txt");
    EXPECT_EQ(names.n, 230);
    EXPECT_TRUE(names[1].is_empty());
    const struct {
        const char* catalogue;
        std::string names;  // of number 5, or a failure
    } rows[] = {{"0 t { p1 =1 }", " File lomar5.txt is corrupt"},
                {"231 t { p1 =1 }", " File lomar5.txt is corrupt"},
                {"1 t", " Cannot find { in stream lomar5.txt"},
                {"1 t { p1 { }", " Unclosed:  }"},
                {"1 t { p1 } 1 t { p1", " Cannot find } in stream lomar5.txt"},
                {"5 t { c2 =5 =c121 =5:b1 - a112 =5:c }", "c2 c121"},
                {"5 t { - - c112 } 5 t { c2 =5 }", "c112"},  // no number: the last slot
                {"5 t { a2 =x b2 =5 =y z }", "b2 y"},        // a name without = begins a slot
                {"5 t { as a2s =a2 =5s =b }", "a2 b"},
                {"5 t { =a2 - - 5 }", ""},
                {"5 t { a2 { =5 } b } 5 }", "{"}};
    for (const auto& row : rows) {
        write_file("lomar5.txt", row.catalogue);
        const auto failure = message_of([&] { load_sg_names(names); });
        EXPECT_EQ(failure ? *failure : names[5].data, row.names) << row.catalogue;
    }
    EXPECT_EQ(names.n, 230);
}

// What was read before a failure is the table from then on.
TEST_F(GroupNumbers, ATableIsReadOnce) {
    in_own_process([] {
        write_file("lomar5.txt", "5 t { c2 =5 } 231 t { }");
        EXPECT_FAILURE(sg_name_table(), " File lomar5.txt is corrupt");
        write_file("lomar5.txt", "4 t { p21 =4 }");
        EXPECT_EQ(sg_number_of("C2"), 5);
        EXPECT_EQ(sg_number_of("P21"), 0);
    });
}

}  // namespace
