#include "library/magnetic_groups.h"

#include <gtest/gtest.h>
#include <map>
#include <string>

#include "foundation/platform.h"
#include "library/magnetic_names.h"
#include "support/command_stand_in.h"
#include "support/expect_failure.h"
#include "support/magnetic_reference.h"
#include "support/scratch_dir.h"
#include "textout/console.h"
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
    static void load(const char* key) {
        xyz_list_3 ops;
        string_3 name;
        load_magnetic_group_3(ops, key, name);
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

op_array product(const op_array& a, const op_array& b) {
    op_array result{};
    for (unsigned i = 0; i < 3; ++i) {
        for (unsigned j = 0; j < 4; ++j) {
            int value = j == 3 ? a[4 * i + 3] : 0;
            for (unsigned k = 0; k < 3; ++k) value += a[4 * i + k] * b[4 * k + j];
            result[4 * i + j] = j == 3 ? (value % 360 + 360) % 360 : value;
        }
    }
    return result;
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
    std::map<int, int> by_type;
    for (const magnetic_reference& group : read_magnetic_references()) {
        SCOPED_TRACE(group.bns_number);
        ++by_type[group.type];
        xyz_list_3 ops;
        string_3 name;
        const auto failure =
            message_of([&] { load_magnetic_group_3(ops, group.bns_number.c_str(), name); });
        EXPECT_EQ(name, with_carets(group.bns_symbol).c_str());
        if (group.type == 2) {
            EXPECT_EQ(failure,
                      " Intensity of magnetic space group " + group.bns_number + "  is zero\n");
        } else {
            EXPECT_EQ(failure, std::nullopt);
        }
        const int without_copies = ops.n;
        add_centring_3(ops, group.lattice);
        const signed_set loaded = signed_set_of(ops);
        EXPECT_EQ(loaded, group.ops);
        EXPECT_TRUE(is_closed(loaded));
        EXPECT_EQ(loaded.size(), static_cast<std::size_t>(ops.n) * (group.type == 2 ? 2 : 1));
        const std::map<char, int> copies = {{'P', 1}, {'A', 2}, {'B', 2}, {'C', 2},
                                            {'I', 2}, {'F', 4}, {'R', 3}};
        EXPECT_EQ(ops.n, without_copies * copies.at(group.lattice));
    }
    EXPECT_EQ(by_type, (std::map<int, int>{{1, 230}, {2, 230}, {3, 674}, {4, 517}}));
}

TEST_F(MagneticGroups, RecordsAsWritten) {
    const struct {
        const char* file;
        const char* ops;
        std::vector<int> tags;
    } rows[] = {
        {"1.1 P1\n1\nx,y,z,1\n", "x,y,z", {1}},
        {"  0.9 other\n 2 rest ignored\nx,y,z,1\n-x,y,z,1\n\n\n 1.1 P1 rest\n1 op\nx,y,z,-1\n0.9",
         "x,y,z",
         {-1}},
        // Sorted, normalised, no comments.
        {"' head 1.1\n1.1 a 'b\n2\nx,y-1/4,z,1 'c\n-x, y, z+1/2, -1\n/*\n*/",
         "-x,y,z+1/2;x,y+3/4,z",
         {-1, 1}},
        // One operator with both signs among others.
        {"1.1 a\n4\nx,y,z,1\n-x,y,z,1\n-x,y,z,-1\ny,x,z,-1\n", "-x,y,z;y,x,z;x,y,z", {2, -1, 1}},
        {"1.1 a\n4\nx,y,z,1\n-x,y,z,-1\n-x,y,z+5/5,1\ny,x,z\n", "-x,y,z;y,x,z;x,y,z", {2, 0, 1}},
        // A record further down isn't looked at, whatever it holds.
        {"1.1 a\n1\nx,y,z,1\n1.1 b\n5\nnonsense", "x,y,z", {1}},
        {"1.10 a\n1\n-x,y,z,1\n1.1 b\n1\nx,y,z,1\n", "x,y,z", {1}},
        {"x y\n-3\n1.1 b\n1\nx,y,z,1\n", "x,y,z", {1}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.file);
        write_file("shubnikovgroups.txt", row.file);
        xyz_list_3 ops;
        string_3 name;
        EXPECT_EQ(message_of([&] { load_magnetic_group_3(ops, "1.1", name); }), std::nullopt);
        EXPECT_EQ(arrays_of(ops), arrays_of(xyz_list_of(row.ops)));
        std::vector<int> tags;
        for (const xyz_op_3& op : ops) tags.push_back(op.tag);
        EXPECT_EQ(tags, row.tags);
    }
}

TEST_F(MagneticGroups, Failures) {
    constexpr char missing[] = " Cannot find magnetic space group 1.1 in file shubnikovgroups.txt";
    constexpr char malformed[] = " Error loading symmetry xyz's";
    constexpr char twice[] = " Error in  shubnikovgroups.txt";
    EXPECT_FAILURE(load("1.1"), " Cannot open file shubnikovgroups.txt");
    const struct {
        const char* file;
        const char* message;
    } rows[] = {
        {"", missing},
        {"1.2 a\n1\nx,y,z,1\n", missing},
        {"1.1 a\n0\n", missing},
        {"1.1", missing},
        {"1.1 a\nx,y,z,1\n", missing},
        {"1.2 a\n2147483647\nx,y,z,1\n1.1 a\n1\nx,y,z,1\n", missing},
        {"1.10 a\n1\nx,y,z,1\n", missing},
        {"1.1 a\n2\nx,y,z,1\n", malformed},
        {"1.1 a\n2147483647\nx,y,z,1\n", malformed},
        {"1.1 a\n2\nx,y,z,1\n1.2 b\n1\nx,y,z,1\n", malformed},
        {"1.1 a\n1\nx,y,z", malformed},
        {"1.1 a\n2\nx,y,z,1\nx,y,z+2/2,1\n", twice},
        {"1.1 a\n2\nx,y,z,2\nx,y,z,-2\n", twice},
        {"1.1 a\n2\nx,y,z\nx,y,z\n", twice},
        {"1.1 a\n2\nx,y,z,-2147483648\nx,y,z,-2147483648\n", twice},
        {"1.1 a\n2\nx,y,z,1\nx,y,z,-1\n", " Intensity of magnetic space group 1.1  is zero\n"},
        {"1.1 a\n/* 1", " Unclosed comment block"},
    };
    for (const auto& row : rows) {
        write_file("shubnikovgroups.txt", row.file);
        EXPECT_FAILURE(load("1.1"), row.message) << row.file;
    }
    write_file("shubnikovgroups.txt", "P1 a\n1\nx,y,z,1\n");
    EXPECT_FAILURE(load("p1"), " Cannot find magnetic space group p1 in file shubnikovgroups.txt");
}

// A file cut off at any byte ends in the group or in a known message.
TEST_F(MagneticGroups, CutOffAnywhere) {
    const std::string whole =
        "' head\n1.1 P1\n1\nx,y,z,1\n\n2.4 P-1\n2\nx,y,z,1\n-x,-y,-z+1/2,-1\n";
    int complete = 0;
    for (std::size_t n = 0; n <= whole.size(); ++n) {
        write_file("shubnikovgroups.txt", whole.substr(0, n));
        const auto message = message_of([] { load("2.4"); });
        complete += !message;
        EXPECT_TRUE(!message || *message == " Error loading symmetry xyz's" ||
                    *message == " Cannot find magnetic space group 2.4 in file shubnikovgroups.txt")
            << n << *message;
    }
    // The fourth field of the last operator is the one thing that can be missing.
    EXPECT_EQ(complete, 4);
}

TEST(AddCentring, CopiesEachOperator) {
    const struct {
        char letter;
        const char* ops;
    } rows[] = {
        {'p', "x,y,z;-x,y,z+1/2"},
        {'A', "x,y,z;-x,y,z+1/2;x,y+1/2,z+1/2;-x,y+1/2,z"},
        {'f',
         "x,y,z;-x,y,z+1/2;x+1/2,y+1/2,z;-x+1/2,y+1/2,z+1/2;"
         "x+1/2,y,z+1/2;-x+1/2,y,z;x,y+1/2,z+1/2;-x,y+1/2,z"},
        {'R',
         "x,y,z;-x,y,z+1/2;x+2/3,y+1/3,z+1/3;-x+2/3,y+1/3,z+5/6;"
         "x+1/3,y+2/3,z+2/3;-x+1/3,y+2/3,z+1/6"},
    };
    for (const auto& row : rows) {
        xyz_list_3 ops = xyz_list_of("x,y,z;-x,y,z+1/2");
        ops[1].trans(2) -= 720;
        ops[1].tag = -1;
        add_centring_3(ops, row.letter);
        EXPECT_EQ(arrays_of(ops), arrays_of(xyz_list_of(row.ops))) << row.letter;
        for (int i = 0; i < ops.n; ++i) EXPECT_EQ(ops[i].tag, i % 2 == 0 ? 0 : -1);
    }
    xyz_list_3 ops = xyz_list_of("x,y,z");
    EXPECT_FAILURE(add_centring_3(ops, 's'), " Unknown lattice s");
    EXPECT_FAILURE(add_centring_3(ops, '\0'), " Unknown lattice ");
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
        {"x,y,z", 1, ' ', nullptr, false, "mx,my,mz"},
        {"x,y,z", -1, '"', nullptr, false, "\"-mx,-my,-mz\""},
        {"x,-y,z+1/2", 1, ' ', "op ", true, "op -mx, my, -mz "},
        {"x,-y,z", -1, '|', "m=", true, "m=|mx, -my, mz |"},
        {"x-y,x,z", 1, ' ', "", false, "mx-my,mx,mz"},
        {"-x+y,-x,z", -1, ' ', nullptr, false, "mx-my,mx,-mz"},
        // Only the sign of a coefficient is written, and only -1 has one.
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

// ---- names ----

TEST_F(MagneticGroups, NamesOfAll) {
    use_shipped_files();
    const std::vector<magnetic_reference> groups = read_magnetic_references();
    std::set<std::string> bns_symbols;
    for (const magnetic_reference& group : groups) bns_symbols.insert(group.bns_symbol);
    int n_shared = 0;
    for (const magnetic_reference& group : groups) {
        SCOPED_TRACE(group.bns_number);
        std::vector<std::string> names = {group.bns_number, group.og_number, group.bns_symbol,
                                          with_carets(group.bns_symbol)};
        if (group.og_symbol == group.bns_symbol || !bns_symbols.contains(group.og_symbol)) {
            names.push_back(group.og_symbol);
        } else {
            ++n_shared;
        }
        for (const std::string& name : names) {
            const magnetic_name_3 entry = find_magnetic_group_3(name.c_str());
            EXPECT_EQ(entry.bns_number, group.bns_number.c_str()) << name;
            EXPECT_EQ(entry.og_number, group.og_number.c_str());
            EXPECT_EQ(entry.bns_symbol, with_carets(group.bns_symbol).c_str());
            EXPECT_EQ(entry.og_symbol, with_carets(group.og_symbol).c_str());
            EXPECT_EQ(entry.type, group.type);
            EXPECT_EQ(entry.family_number, group.family);
            EXPECT_EQ(entry.parent_number, group.parent);
            EXPECT_EQ(entry.lattice_letter, group.lattice);
        }
    }
    EXPECT_EQ(n_shared, 28);
}

TEST_F(MagneticGroups, NameFailures) {
    EXPECT_FAILURE(find_magnetic_group_3("1.1"), " Cannot open file magnetic_names.txt");
    use_shipped_files();
    EXPECT_EQ(find_magnetic_group_3(" P 2_1' / c' ").bns_number, "14.79");
    for (const char* name : {"", " ", "p2_1'/c'", "P21'/c'", "14.79.1", "1652"}) {
        EXPECT_FAILURE(find_magnetic_group_3(name),
                       std::string(" Cannot find magnetic space group ") + name +
                           " in file magnetic_names.txt");
    }
    for (const char* text : {"1.1 1.1.1 P1", "1.1 1.1.1 P1 P1 1 1 1", "1.1 1.1.1 P1 P1 0 1 1 P",
                             "1.1 1.1.1 P1 P1 5 1 1 P", "1.1 1.1.1 P1 P1 1 1 1 p", "1.1"}) {
        write_file("magnetic_names.txt", text);
        EXPECT_FAILURE(find_magnetic_group_3("1.1"), " Error in  magnetic_names.txt") << text;
    }
}

// ---- the operators of a group from its .sg file ----

struct LoadGroup : testing::Test {
    LoadGroup() {
        std::filesystem::create_directory("sg");
        push_console_stream(console);
    }
    ~LoadGroup() override { pop_console_stream(); }
    scratch_dir dir;
    sstring_out console;
    xyz_list_3 ops = xyz_list_of("-x,y,z");
    string_3 path;
};

const std::string sg_path = std::string("sg") + platform_separator + "p21oc.sg";

void write_sg() { write_file("sg/p21oc.sg", "xyzs\n{\n\tx, y, z \n\t-x, -y+1/2, -z \n} 2\n"); }

TEST_F(LoadGroup, ReadsTheFile) {
    write_sg();
    load_group_xyzs_3(ops, path, "P_21/c");
    EXPECT_EQ(arrays_of(ops), arrays_of(xyz_list_of("x,y,z;-x,-y+1/2,-z")));
    EXPECT_EQ(path, sg_path.c_str());
    EXPECT_EQ(console.text(), "Loading xyz's for P_21/c from file " + sg_path + "\n");
}

TEST_F(LoadGroup, GeneratesTheFile) {
    command_stand_in child(write_sg);
    load_group_xyzs_3(ops, path, "P_21/c");
    EXPECT_EQ(ops.n, 2);
    ASSERT_EQ(child.commands.size(), 1U);
    EXPECT_TRUE(child.commands[0].ends_with("lomar6  p21/c -dir \"sg\" -e \"err.txt\""))
        << child.commands[0];
    EXPECT_EQ(console.text(),
              "Generating xyz's for P_21/c\nLoading xyz's for P_21/c from file " + sg_path + "\n");
}

TEST_F(LoadGroup, ChildLeavesNoFile) {
    write_file("err.txt", "left behind");
    command_stand_in child([] {});
    load_group_xyzs_3(ops, path, "P_21/c");
    EXPECT_EQ(ops.n, 0);
    EXPECT_EQ(child.commands.size(), 2U);
    EXPECT_STREQ(console.text(), "Generating xyz's for P_21/c\nGenerating xyz's for P_21/c\n");
}

TEST_F(LoadGroup, ChildFails) {
    command_stand_in child([] { write_file("err.txt", ""); });
    EXPECT_FAILURE(load_group_xyzs_3(ops, path, "P_21/c"),
                   " Error generating equivalent positions");
    EXPECT_EQ(child.commands.size(), 1U);
    EXPECT_FALSE(std::filesystem::exists("err.txt"));
}

}  // namespace
