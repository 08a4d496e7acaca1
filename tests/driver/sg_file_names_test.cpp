#include <gtest/gtest.h>
#include <string>

#include "driver/sg_file_names_3.h"
#include "foundation/platform.h"
#include "support/expect_failure.h"
#include "textin/data_dir.h"

namespace {

TEST(SgFileNames, KeysAndFiles) {
    const std::string long_symbol = "p" + std::string(10000, '1');
    const struct {
        std::string typed, key, stem;
    } rows[] = {{"F_d_d_d", "fddd", "fddd"},
                {"P 21/c", "p21/c", "p21oc"},
                {"P(21)/c", "p21/c", "p21oc"},
                {" P_2(1) / c_ ", "p21/c", "p21oc"},
                {"Fd-3m:2", "fd-3m:2", "fd-3mq2"},
                {"Fd-3m:1", "fd-3m1", "fd-3m1"},
                {"Fd-3m:_2", "fd-3m:2", "fd-3mq2"},
                {"fd:3:m:2", "fd:3:m:2", "fdq3qmq2"},
                {"fd-3m:21", "fd-3m21", "fd-3m21"},
                {"P6:1", "p61", "p61"},
                {"R-3:H", "r-3", "r-3"},
                {"R-3:R", "r-3r", "r-3r"},
                {"phm", "p", "p"},
                {"p:h:2", "p:", "pq"},
                {"P", "p", "p"},
                {"227", "227", "227"},
                {"227:1", "227", "227"},
                {"227:2", "227:2", "227q2"},
                {"14:-B2", "14:-b2", "14q-b2"},
                {"146:H", "146:", "146q"},
                {"1h:1", "1", "1"},
                {"9:1:1", "9:1", "9q1"},
                {"p\xc0\xff", "p\xc0\xff", "p\xc0\xff"},
                {long_symbol, long_symbol, long_symbol}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.typed.substr(0, 20));
        sg_file_names_3 names;
        names.set_symbol(row.typed.c_str());
        names.set_out_dir("");
        EXPECT_EQ(names.lower_symbol().data, row.key);
        EXPECT_TRUE(names.is_valid());
        EXPECT_EQ(names.file_stem().data, row.stem);
        EXPECT_EQ(names.sg_path().data, row.stem + ".sg");
        EXPECT_EQ(names.hkl_path().data, row.stem + ".hkl");
        EXPECT_FALSE(names.sg_file_exists());
    }
    for (const char* invalid : {"0abc", "x", "-hhh", "_", ":", "::", ":2", "h", "\xff"}) {
        sg_file_names_3 names;
        names.set_symbol(invalid);
        EXPECT_FALSE(names.is_valid()) << invalid;
        EXPECT_TRUE(names.sg_path().is_empty()) << invalid;
        EXPECT_FALSE(names.sg_file_exists()) << invalid;
    }
    for (const char* nothing : {"", " ", "(", ")( "}) {
        EXPECT_FAILURE(sg_file_names_3().set_symbol(nothing), " No Spacegroup");
    }
}

TEST(SgFileNames, Directories) {
    const std::string s(1, platform_separator);
    const struct {
        std::string dir, out_dir, path;
    } rows[] = {{"", "", "p-1.sg"},
                {"out", "out", "out" + s + "p-1.sg"},
                {"out" + s, "out", "out" + s + "p-1.sg"},
                {"out" + s + s, "out" + s, "out" + s + s + "p-1.sg"},
                {s, "", "p-1.sg"},
                {"a" + s + "b c", "a" + s + "b c", "a" + s + "b c" + s + "p-1.sg"}};
    for (const auto& row : rows) {
        sg_file_names_3 names;
        names.set_symbol("P-1");
        EXPECT_EQ(names.out_dir(), "sg");
        names.set_out_dir(row.dir.c_str());
        EXPECT_EQ(names.out_dir().data, row.out_dir);
        EXPECT_EQ(names.sg_path().data, row.path);
        // A path that was asked for once stays.
        names.set_out_dir("elsewhere");
        EXPECT_EQ(names.sg_path().data, row.path);
        EXPECT_EQ(names.hkl_path().data, "elsewhere" + s + "p-1.hkl");
    }
    EXPECT_EQ(catalogue_path(), "lomar5.txt");
    data_dir() = "data/";
    sg_file_names_3 names;
    names.set_symbol("P-1");
    EXPECT_EQ(names.run_command(), "\"data/lomar6\" p-1 -dir \"data/sg\"");
    EXPECT_EQ(catalogue_path(), "lomar5.txt") << "is built once";
    data_dir() = "";
}

}  // namespace
