#include "library/magnetic/magnetic_groups.h"

#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>

#include "library/magnetic/magnetic_names.h"
#include "support/expect_failure.h"
#include "support/magnetic_reference.h"
#include "support/pace.h"
#include "support/scratch_dir.h"
#include "textout/sstring_out.h"

namespace {

using signed_set = std::set<std::pair<op_array, int>>;

// A folder with the data files, or with what a case puts into their places.
struct MagneticGroups : testing::Test {
    static void use_shipped_files() {
        for (const char* name : {"shubnikovgroups.txt", "magnetic_names.txt"}) {
            write_file(name, read_file(std::string(DATA_DIR "/") + name));
        }
    }
    scratch_dir dir;
};

// The operators with both signs of those whose tag is 2.
signed_set signed_set_of(const xyz_list_3& ops) {
    signed_set set;
    for (const xyz_op_3& op : ops) {
        if (op.tag != -1) set.emplace(array_of(op), 1);
        if (op.tag != 1) set.emplace(array_of(op), -1);
    }
    return set;
}

bool is_closed(const signed_set& group) {
    std::vector<std::pair<op_array, int>> generators;  // enough of them: each adds new products
    signed_set reached = {{op_of("x,y,z"), 1}};
    for (const auto& op : group) {
        if (reached.contains(op)) continue;
        generators.push_back(op);
        std::vector<std::pair<op_array, int>> open(reached.begin(), reached.end());
        while (!open.empty()) {
            const auto [array, sign] = open.back();
            open.pop_back();
            for (const auto& [g, g_sign] : generators) {
                const std::pair<op_array, int> next = {product(array, g), sign * g_sign};
                if (!group.contains(next)) return false;
                if (reached.insert(next).second) open.push_back(next);
            }
        }
    }
    return reached == group;
}

std::string with_carets(std::string symbol) {
    for (char& c : symbol) {
        if (c == '\'') c = '^';
    }
    return symbol;
}

TEST_F(MagneticGroups, AllOfThem) {
    use_shipped_files();
    const std::vector<magnetic_reference> groups = read_magnetic_references();
    std::map<int, int> by_type;
    std::set<std::string> bns_symbols;
    for (const magnetic_reference& group : groups) bns_symbols.insert(group.bns_symbol);
    for (const magnetic_reference& group : groups) {
        if (by_type[group.type]++ % pace != 0) continue;
        SCOPED_TRACE(group.bns_number);
        const std::vector<std::string> texts = {group.bns_number, group.og_number,
                                                with_carets(group.bns_symbol),
                                                with_carets(group.og_symbol)};
        std::vector<std::string> names = {texts[0], texts[1], texts[2], group.bns_symbol};
        // What is the BNS symbol of one group and the OG symbol of another names the first.
        if (!bns_symbols.contains(group.og_symbol)) names.push_back(group.og_symbol);
        for (const std::string& name : names) {
            const magnetic_name_3 entry = find_magnetic_group_3(name.c_str());
            const std::vector<std::string> found = {entry.bns_number.data, entry.og_number.data,
                                                    entry.bns_symbol.data, entry.og_symbol.data};
            EXPECT_EQ(found, texts) << name;
            EXPECT_EQ(entry.type, group.type);
            EXPECT_EQ(entry.family_number, group.family);
            EXPECT_EQ(entry.parent_number, group.parent);
            EXPECT_EQ(entry.lattice_letter, group.lattice);
        }
        const bool is_grey = group.type == 2;
        xyz_list_3 ops;
        string_3 name;
        const auto failure =
            message_of([&] { load_magnetic_group_3(ops, group.bns_number.c_str(), name); });
        EXPECT_EQ(failure.value_or(""),
                  is_grey ? " Intensity of magnetic space group " + group.bns_number + "  is zero\n"
                          : "");
        EXPECT_EQ(name.data, texts[2]);
        add_centring_3(ops, group.lattice);
        const signed_set loaded = signed_set_of(ops);
        EXPECT_EQ(loaded, group.ops);
        EXPECT_TRUE(is_closed(loaded));
        EXPECT_EQ(loaded.size(), static_cast<std::size_t>(ops.n) * (is_grey ? 2 : 1));
    }
    EXPECT_EQ(by_type, (std::map<int, int>{{1, 230}, {2, 230}, {3, 674}, {4, 517}}));
}

TEST_F(MagneticGroups, RecordsAsWritten) {
    xyz_list_3 ops;
    const auto load = [&](const char* text) {
        write_file("shubnikovgroups.txt", text);
        string_3 name;
        load_magnetic_group_3(ops, "1.1", name);
    };
    const struct {
        const char *file, *ops;
        std::vector<int> tags;
    } rows[] = {
        {"  0.9 other\n 2 rest ignored\nx,y,z,1\n\n-x,y,z,1\n\n 1.1 P1 rest\n1 op\nx,y,z,-1\n0.9",
         "x,y,z",
         {-1}},
        // Sorted, normalised, no comments.
        {"' head 1.1\n1.1 a 'b\n2\nx,y-1/4,z,1 'c\n-x, y, z+1/2, -1\n/*\n*/",
         "-x,y,z+1/2;x,y+3/4,z",
         {-1, 1}},
        // One operator with both signs among others.
        {"1.1 a\n4\nx,y,z,1\n-x,y,z,1\n-x,y,z+5/5,-1\ny,x,z\n", "-x,y,z;y,x,z;x,y,z", {2, 0, 1}},
        // The sign may be missing where the file ends.
        {"1.1 a\n2\nx,y,z,1\n-x,y,z,", "-x,y,z;x,y,z", {0, 1}},
        // A record further down isn't looked at, whatever it holds.
        {"1.10 a\n1\n-x,y,z,1\n1.1 a\n1\nx,y,z,1\n1.1 b\n5\nnonsense", "x,y,z", {1}},
    };
    for (const auto& row : rows) {
        ops.clear();
        load(row.file);
        EXPECT_EQ(arrays_of(ops), arrays_of(xyz_list_of(row.ops))) << row.file;
        std::vector<int> tags;
        for (const xyz_op_3& op : ops) tags.push_back(op.tag);
        EXPECT_EQ(tags, row.tags) << row.file;
    }
    load("1.1 a\n1\n-x,y,z,1\n");
    EXPECT_EQ(arrays_of(ops), arrays_of(xyz_list_of("-x,y,z;x,y,z"))) << "appended to the list";
}

TEST_F(MagneticGroups, BadRecords) {
    const char* const missing = " Cannot find magnetic space group 1.1 in file shubnikovgroups.txt";
    const char* const malformed = " Error loading symmetry xyz's";
    const char* const twice = " Error in  shubnikovgroups.txt";
    const struct {
        const char *file, *message;
    } rows[] = {
        {"1.1", missing},
        {"1.2 a\n2147483647\nx,y,z,1\n1.1 a\n1\nx,y,z,1\n", missing},
        {"1.1 a\n2147483647\nx,y,z,1\n", malformed},
        {"1.1 a\n2\nx,y,z,1\n1.2 b\n1\nx,y,z,1\n", malformed},
        {"1.1 a\n2\nx,y,z,1\n-x,-y,", malformed},
        {"1.1 a\n2\nx,y,z,1\nx,y,z+2/2,1\n", twice},
        {"1.1 a\n2\nx,y,z,-2147483648\nx,y,z,-2147483648\n", twice},
        {"1.1 a\n2\nx,y,z,1\nx,y,z,-1\n", " Intensity of magnetic space group 1.1  is zero\n"},
    };
    xyz_list_3 ops;
    string_3 name;
    const auto load = [&] { load_magnetic_group_3(ops, "1.1", name); };
    EXPECT_FAILURE(load(), " Cannot open file shubnikovgroups.txt");
    for (const auto& row : rows) {
        write_file("shubnikovgroups.txt", row.file);
        ops.clear();
        EXPECT_FAILURE(load(), row.message) << row.file;
    }
}

// The reference groups have all letters; what is left are tags and translations of any size.
TEST(AddCentring, CopiesEachOperator) {
    xyz_list_3 ops = xyz_list_of("x,y,z;-x,y,z+1/2");
    ops[1].trans(2) -= 720;
    ops[1].tag = -1;
    add_centring_3(ops, 'r');
    EXPECT_EQ(arrays_of(ops),
              arrays_of(xyz_list_of("x,y,z;-x,y,z+1/2;x+2/3,y+1/3,z+1/3;-x+2/3,y+1/3,z+5/6;"
                                    "x+1/3,y+2/3,z+2/3;-x+1/3,y+2/3,z+1/6")));
    for (int i = 0; i < ops.n; ++i) EXPECT_EQ(ops[i].tag, i % 2 == 0 ? 0 : -1);
    EXPECT_FAILURE(add_centring_3(ops, 's'), " Unknown lattice s");
}

TEST(WriteMomentOp, Texts) {
    const struct {
        const char* op;
        int tag;
        char wrap;
        const char* prefix;
        bool spaced;
        const char* text;
    } rows[] = {
        {"x,y,z", -1, '"', nullptr, false, "\"-mx,-my,-mz\""},
        {"x,-y,z+1/2", 1, ' ', "op ", true, "op -mx, my, -mz "},
        {"x,-y,z", -1, '|', "m=", true, "m=|mx, -my, mz |"},
        {"-x+y,y,z", -1, ' ', "", false, "-mx+my,my,mz"},
        // A minus means -1 alone, not -2; 0 leaves nothing.
        {"x,-y,z", 2, ' ', nullptr, false, "mx,my,mz"},
        {"x,y,z", 0, '(', nullptr, false, "(,,("},
    };
    for (const auto& row : rows) {
        xyz_op_3 op = xyz_op_of(row.op);
        op.tag = row.tag;
        sstring_out out;
        write_moment_op(out, op, row.wrap, row.prefix, row.spaced);
        EXPECT_STREQ(out.text(), row.text);
    }
}

TEST_F(MagneticGroups, OddNames) {
    EXPECT_FAILURE(find_magnetic_group_3("1.1"), " Cannot open file magnetic_names.txt");
    use_shipped_files();
    EXPECT_EQ(find_magnetic_group_3(" P 2_1' / c' ").bns_number, "14.79");
    for (const char* name : {"", "p2_1'/c'", "14.79.1"}) {
        EXPECT_FAILURE(find_magnetic_group_3(name),
                       std::string(" Cannot find magnetic space group ") + name +
                           " in file magnetic_names.txt");
    }
    for (const char* text : {"1.1", "1.1 1.1.1 P1 P1 1 1 1", "1.1 1.1.1 P1 P1 0 1 1 P",
                             "1.1 1.1.1 P1 P1 5 1 1 P", "1.1 1.1.1 P1 P1 1 1 1 p"}) {
        write_file("magnetic_names.txt", text);
        EXPECT_FAILURE(find_magnetic_group_3("1.1"), " Error in  magnetic_names.txt") << text;
    }
    // A name is rather the BNS symbol of a later record than the OG symbol of an earlier one.
    write_file("magnetic_names.txt", "1.1 1.1.1 PA PX 1 1 1 P\n1.2 1.1.2 PX PB 1 1 1 P");
    EXPECT_EQ(find_magnetic_group_3("PX").bns_number, "1.2");
}

}  // namespace
