#include <gtest/gtest.h>

#include "library/groups/space_group_3.h"
#include "library/magnetic/magnetic_groups.h"
#include "library/magnetic/magnetic_names.h"
#include "support/expect_failure.h"
#include "support/operators.h"
#include "support/scratch_dir.h"
#include "textin/data_dir.h"

namespace {

// The bytes of a data file in memory that ends right after them.
data_text_3 text_of(const char* name) {
    const std::string bytes = read_file(std::string(DATA_DIR "/") + name);
    const std::vector<char> exact(bytes.begin(), bytes.end());
    return data_text_3(exact.data(), static_cast<int>(exact.size()));
}

// All of this happens in a folder without files.
struct DataInMemory : testing::Test {
    scratch_dir dir;
    space_groups_3 groups{text_of("lomar5.txt"), text_of("sgrots3.txt")};
};

TEST_F(DataInMemory, EachNameOfTheScan) {
    std::set<std::string> settings;
    int n = 0;
    for (catalogue_scan_3 scan = groups.scan(); scan.next(); ++n) {
        const sg_catalogue_entry_3 entry = scan.entry();
        const std::string name(scan.name().begin, scan.name().end);
        SCOPED_TRACE(name);
        EXPECT_EQ(scan.is_main_name(), name == entry.symbol.data);
        if (scan.is_main_name()) settings.insert(name);
        const space_group_3 group = groups.find(name.c_str());
        for (auto field : {&sg_catalogue_entry_3::symbol, &sg_catalogue_entry_3::axes,
                           &sg_catalogue_entry_3::computer_symbol}) {
            EXPECT_EQ(group.entry.*field, entry.*field);
        }
        EXPECT_EQ(arrays_of(groups.group_of(entry).ops), arrays_of(group.ops));
    }
    EXPECT_EQ(settings.size(), 557U);
    EXPECT_GT(n, 2000);
    EXPECT_STREQ(groups.find("P4bm").entry.point_group.data, "4mm");
}

TEST_F(DataInMemory, SameAsFromFiles) {
    EXPECT_FAILURE(space_group_of("P1"), " Cannot open file lomar5.txt");
    std::filesystem::current_path(DATA_DIR);
    for (const char* symbol : {"R-3c", "R-3c:r", "F d -3 m :2"}) {
        const space_group_3 group = space_group_of(symbol);
        EXPECT_EQ(arrays_of(group.ops), arrays_of(groups.find(symbol).ops));
        EXPECT_EQ(arrays_of(group.ops), arrays_of(space_groups_3().find(symbol).ops));
    }
}

TEST_F(DataInMemory, Failures) {
    const struct {
        const char *symbol, *message;
    } rows[] = {{"", " No Spacegroup"},
                {"x", " Error in space group symbol"},
                {"P9", " Space group not found in lomar5.txt"}};
    for (const auto& row : rows) EXPECT_FAILURE(groups.find(row.symbol), row.message);
    constexpr char twice[] = "rotation_matrix 1a { 1 0 0 0 1 0 0 0 1 } rotation_matrix 1A 'c\0\r";
    EXPECT_FAILURE(rotation_catalogue_3(data_text_3(twice, sizeof twice)),
                   " Rotation matrix 1a in file sgrots3.txt listed more than once");
    EXPECT_FAILURE(data_text_3("/* x", 4), " Unclosed comment block");
    EXPECT_EQ(data_text_3("x y", 1).text(), std::string("x"));
}

TEST_F(DataInMemory, MagneticGroups) {
    const data_text_3 names = text_of("magnetic_names.txt");
    const data_text_3 records = text_of("shubnikovgroups.txt");
    sstring_in in(names.text());
    int n = 0;
    for (magnetic_name_3 group; read_magnetic_name_3(in, group); ++n) {
        SCOPED_TRACE(group.bns_number.data);
        EXPECT_EQ(find_magnetic_group_3(names, group.bns_number.data).og_symbol, group.og_symbol);
    }
    EXPECT_EQ(n, 1651);
    xyz_list_3 ops;
    string_3 symbol;
    load_magnetic_group_3(records, ops, "14.79", symbol);
    EXPECT_STREQ(symbol.data, "P2_1^/c^");
    EXPECT_EQ(ops.n, 4);
    constexpr char missing[] = " Cannot find magnetic space group 9.99 in file ";
    EXPECT_FAILURE(find_magnetic_group_3(names, "9.99"),
                   std::string(missing) + "magnetic_names.txt");
    EXPECT_FAILURE(load_magnetic_group_3(records, ops, "9.99", symbol),
                   std::string(missing) + "shubnikovgroups.txt");
}

}  // namespace
