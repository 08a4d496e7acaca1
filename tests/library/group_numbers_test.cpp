#include "library/group_numbers.h"

#include <gtest/gtest.h>
#include <sstream>

#include "library/child_process.h"
#include "support/expect_failure.h"
#include "support/scratch_dir.h"

namespace {

// The short symbols of the 230 space groups, in the order of their numbers.
constexpr char symbols[] =
    "P1 P-1 P2 P21 C2 Pm Pc Cm Cc P2/m P21/m C2/m P2/c P21/c C2/c P222 P2221 P21212 P212121 C2221 "
    "C222 F222 I222 I212121 Pmm2 Pmc21 Pcc2 Pma2 Pca21 Pnc2 Pmn21 Pba2 Pna21 Pnn2 Cmm2 Cmc21 Ccc2 "
    "Amm2 Abm2 Ama2 Aba2 Fmm2 Fdd2 Imm2 Iba2 Ima2 Pmmm Pnnn Pccm Pban Pmma Pnna Pmna Pcca Pbam "
    "Pccn Pbcm Pnnm Pmmn Pbcn Pbca Pnma Cmcm Cmca Cmmm Cccm Cmma Ccca Fmmm Fddd Immm Ibam Ibca "
    "Imma P4 P41 P42 P43 I4 I41 P-4 I-4 P4/m P42/m P4/n P42/n I4/m I41/a P422 P4212 P4122 P41212 "
    "P4222 P42212 P4322 P43212 I422 I4122 P4mm P4bm P42cm P42nm P4cc P4nc P42mc P42bc I4mm I4cm "
    "I41md I41cd P-42m P-42c P-421m P-421c P-4m2 P-4c2 P-4b2 P-4n2 I-4m2 I-4c2 I-42m I-42d P4/mmm "
    "P4/mcc P4/nbm P4/nnc P4/mbm P4/mnc P4/nmm P4/ncc P42/mmc P42/mcm P42/nbc P42/nnm P42/mbc "
    "P42/mnm P42/nmc P42/ncm I4/mmm I4/mcm I41/amd I41/acd P3 P31 P32 R3 P-3 R-3 P312 P321 P3112 "
    "P3121 P3212 P3221 R32 P3m1 P31m P3c1 P31c R3m R3c P-31m P-31c P-3m1 P-3c1 R-3m R-3c P6 P61 "
    "P65 P62 P64 P63 P-6 P6/m P63/m P622 P6122 P6522 P6222 P6422 P6322 P6mm P6cc P63cm P63mc P-6m2 "
    "P-6c2 P-62m P-62c P6/mmm P6/mcc P63/mcm P63/mmc P23 F23 I23 P213 I213 Pm-3 Pn-3 Fm-3 Fd-3 "
    "Im-3 Pa-3 Ia-3 P432 P4232 F432 F4132 I432 P4332 P4132 I4132 P-43m F-43m I-43m P-43n F-43c "
    "I-43d Pm-3m Pn-3n Pm-3n Pn-3m Fm-3m Fm-3c Fd-3m Fd-3c Im-3m Ia-3d";

struct GroupNumbers : testing::Test {
    void use_catalogue(const std::string& text) { write_file("lomar5.txt", text); }
    scratch_dir dir;
};

TEST_F(GroupNumbers, OfAllGroups) {
    use_catalogue(read_file(DATA_DIR "/lomar5.txt"));
    std::istringstream in(symbols);
    int number = 0;
    for (std::string symbol; in >> symbol;) {
        ++number;
        EXPECT_EQ(sg_number_of(symbol.c_str()), number) << symbol;
        std::string spaced = std::string(1, symbol[0]) + '_' + symbol.substr(1);
        EXPECT_EQ(sg_number_of(spaced.c_str()), number) << spaced;
        EXPECT_EQ(sg_number_of(std::to_string(number).c_str()), number);
    }
    EXPECT_EQ(number, 230);
    EXPECT_EQ(sg_name_table().first(), 1);
    const struct {
        const char* text;
        int number;
    } rows[] = {{" P 21/c ", 14}, {"12", 12},  {" 9999", 9999}, {"225:2", 225},
                {"P_21/", 0},     {"P_7", 0},  {"xyz", 0},      {"-3", 0},
                {"0", 0},         {"P121", 3}, {"P112", 0},     {"Fd3m", 227}};
    for (const auto& row : rows) EXPECT_EQ(sg_number_of(row.text), row.number) << row.text;
    EXPECT_FAILURE(sg_number_of(""), " No Spacegroup");
    EXPECT_FAILURE(sg_number_of(" ( ) "), " No Spacegroup");
}

TEST_F(GroupNumbers, NamesOfARecord) {
    const struct {
        const char* catalogue;
        const char* names;  // of number 5
    } rows[] = {{"5 t { c2 =5 =c121 =5:b1 - a112 =5:c }", "c2 c121"},
                {"5 t { - - c112 } 5 t { c2 =5 }", "c112"},  // no number: the last slot
                {"5 t { a2 - } 5 t { b2 =5 }", "b2"},
                {"5 t { a2 - =b2 } 5 t { c2 }", "b2"},
                {"5 t { a2 =x b2 =5 =y z }", "b2 y"},  // a name without = begins a slot
                {"5 t { as a2s =a2 =5s =b }", "a2 b"},
                {"5 t { 5 =a2 =b2 }", "a2 b2"},
                {"5 t { =a2 - - 5 }", ""},
                {"5\n t x { a2\n=5 } 5 { } ' c }\n", "a2"},
                {"5 t { a2 { =5 } b } 5 }", "{"},
                {"", ""},
                {"5 t {}", ""}};
    for (const auto& row : rows) {
        use_catalogue(row.catalogue);
        vector_string_3 names;
        load_sg_names(names);
        ASSERT_EQ(names.n, 230);
        EXPECT_STREQ(names[5].data, row.names) << row.catalogue;
    }
}

TEST_F(GroupNumbers, BadCatalogues) {
    const struct {
        const char* catalogue;
        const char* message;
    } rows[] = {{"0 t { p1 =1 }", " File lomar5.txt is corrupt"},
                {"231 t { p1 =1 }", " File lomar5.txt is corrupt"},
                {"x t { p1 =1 }", " File lomar5.txt is corrupt"},
                {"99999999999 t { }", " File lomar5.txt is corrupt"},
                {"1 t", " Cannot find { in stream lomar5.txt"},
                {"1 t { p1 { }", " Unclosed:  }"},
                {"1 t { p1 } 1 t { p1", " Cannot find } in stream lomar5.txt"}};
    vector_string_3 names;
    names.add("kept");
    for (const auto& row : rows) {
        use_catalogue(row.catalogue);
        EXPECT_FAILURE(load_sg_names(names), row.message) << row.catalogue;
    }
    std::filesystem::remove("lomar5.txt");
    EXPECT_FAILURE(load_sg_names(names), " Cannot open file lomar5.txt");
    ASSERT_EQ(names.n, 1);
    EXPECT_STREQ(names[0].data, "kept");
}

// Plays the program that generates the file.
struct generator : command_runner_3 {
    explicit generator(const char* makes_) : makes(makes_) { set_command_runner(this); }
    ~generator() { set_command_runner(nullptr); }
    void run(const char* command, int) override {
        line = command;
        if (makes == nullptr) return;
        write_file(makes, "space_group\n{\n\tnumber 70\n\tsymbol fddd\n}");
    }
    const char* makes;
    std::string line;
};

TEST_F(GroupNumbers, LoadsRecords) {
    std::filesystem::create_directory("sg");
    const std::filesystem::path path = std::filesystem::path("sg") / "fddd.sg";
    sg_catalogue_entry_3 entry;
    EXPECT_EQ(load_space_group(entry, ""), space_group_empty);
    EXPECT_EQ(load_space_group(entry, "xyz"), space_group_invalid);
    {
        const generator fails("err.txt");
        EXPECT_EQ(load_space_group(entry, "F_d_d_d"), space_group_not_generated);
        EXPECT_NE(fails.line.find("lomar6"), std::string::npos);
        EXPECT_NE(fails.line.find(" fddd -dir \"sg\" -e \"err.txt\""), std::string::npos);
        EXPECT_FALSE(std::filesystem::exists("err.txt"));
        const generator does_nothing(nullptr);
        EXPECT_FAILURE(load_space_group(entry, "F_d_d_d"), " Cannot open file " + path.string());
    }
    const std::string made_path = path.string();
    const generator makes(made_path.c_str());
    entry.unique_axis = "y";
    EXPECT_EQ(load_space_group(entry, "F_d_d_d"), space_group_loaded);
    EXPECT_EQ(entry.number, 70);
    EXPECT_STREQ(entry.symbol.data, "fddd");
    EXPECT_TRUE(entry.unique_axis.is_empty());
    const generator isnt_asked("err.txt");
    EXPECT_EQ(load_space_group(entry, "Fddd"), space_group_loaded);
    EXPECT_EQ(isnt_asked.line, "");
    write_file(path, "no record");
    EXPECT_FAILURE(load_space_group(entry, "Fddd"), " Cannot find: space_group");
}

}  // namespace
