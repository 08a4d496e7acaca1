#include <gtest/gtest.h>
#include <string>

#include "driver/request/sg_file_names_3.h"
#include "foundation/platform.h"
#include "support/expect_failure.h"
#include "textin/data_dir.h"

namespace {

TEST(SgFileNames, KeysAndFiles) {
    const struct {
        std::string typed, key, stem;
    } rows[] = {{"fd:3:m:2", "fd:3:m:2", "fdq3qmq2"}, {"R-3:H", "r-3", "r-3"},
                {" P_2(1) / c_ ", "p21/c", "p21oc"},  {"146:H", "146:", "146q"},
                {"14:-B2", "14:-b2", "14q-b2"},       {"9:1:1", "9:1", "9q1"},
                {"p\xc0 x", "p\xc0x", "p\xc0x"},      {"Fd-3m:1", "fd-3m1", "fd-3m1"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.typed);
        sg_file_names_3 names;
        names.set_symbol(row.typed.c_str());
        names.set_out_dir("");
        EXPECT_EQ(names.lower_symbol().data, row.key);
        EXPECT_EQ(names.sg_path().data, row.stem + ".sg");
        EXPECT_EQ(names.hkl_path().data, row.stem + ".hkl");
    }
    for (const char* invalid : {"0abc", "_", ":2", "\xff"}) {
        sg_file_names_3 names;
        names.set_symbol(invalid);
        EXPECT_TRUE(names.sg_path().is_empty()) << invalid;
    }
    // What one system takes for a device or for another directory is a file on the other.
    for (const char* typed : {"AUX", "C/n", "com1", "prn.1", "p1\\..\\x", "p*", "p\x1f"}) {
        sg_file_names_3 names;
        names.set_symbol(typed);
        EXPECT_EQ(names.is_valid(), platform_separator == '/') << typed;
    }
    EXPECT_FAILURE(sg_file_names_3().set_symbol(")( "), " No Spacegroup");
}

TEST(SgFileNames, Directories) {
    const std::string s(1, platform_separator);
    for (const auto& [dir, path] : {std::pair{"a" + s + "b c" + s, "a" + s + "b c" + s + "p-1.sg"},
                                    std::pair{s, std::string("p-1.sg")}}) {
        sg_file_names_3 names;
        names.set_symbol("P-1");
        names.set_out_dir(dir.c_str());
        EXPECT_EQ(names.sg_path().data, path);
        names.set_out_dir("elsewhere");
        EXPECT_EQ(names.sg_path().data, path) << "a path that was asked for once stays";
        EXPECT_EQ(names.hkl_path().data, "elsewhere" + s + "p-1.hkl");
    }
    data_dir() = "data/";
    sg_file_names_3 names;
    names.set_symbol("P-1");
    EXPECT_EQ(names.run_command(), "\"data/lomar6\" p-1 -dir \"data/sg\"");
    data_dir() = "";
}

}  // namespace
