#include "library/groups/group_files.h"

#include <gtest/gtest.h>

#include "driver/request/sg_file_names_3.h"
#include "foundation/platform.h"
#include "support/command_stand_in.h"
#include "support/expect_failure.h"
#include "support/operators.h"
#include "support/scratch_dir.h"
#include "textout/console.h"
#include "textout/sstring_out.h"

namespace {

struct GroupFiles : testing::Test {
    GroupFiles() { std::filesystem::create_directory("sg"); }

    // Calls a function while `makes` is the file that a child process leaves. Gives the message of
    // its failure, if it fails.
    template <typename Call>
    std::string run(const std::string& makes, Call call) {
        command_stand_in child([&] {
            write_file(makes,
                       "space_group\n{\n\tnumber 14\n\tsymbol p21/c\n}\n"
                       "xyzs\n{\n\tx, y, z \n\t-x, -y+1/2, -z \n} 2\n");
        });
        sstring_out text;
        push_console_stream(text);
        const auto failure = message_of(call);
        pop_console_stream();
        for (const std::string& command : child.commands) {
            EXPECT_EQ(command, "lomar6  p21/c -dir \"sg\" -e \"err.txt\"");
        }
        EXPECT_FALSE(std::filesystem::exists("err.txt"));
        n_runs = child.commands.size();
        console = text.text();
        return failure.value_or("");
    }

    scratch_dir dir;
    const std::string file = std::string("sg") + platform_separator + "p21oc.sg";
    std::size_t n_runs = 0;
    std::string console;
};

// The three functions that generate a missing file, for each thing that a child process may do.
TEST_F(GroupFiles, MissingOnes) {
    const std::string loads = "Loading xyz's for P_21/c from file " + file + '\n';
    const std::string generates = "Generating xyz's for P_21/c\n";
    const struct {
        std::string makes;
        std::string of_child, of_record, of_ops;  // failures
        int record;                               // the result
        const char* ops;
        std::string console;  // of the operators
        unsigned runs;        // one more for operators that are still missing then
    } rows[] = {
        {"err.txt", " Error running \"lomar6\" p21/c -dir \"sg\"", "",
         " Error generating equivalent positions", space_group_not_generated, "", generates, 1},
        {"nothing", "", " Cannot open file " + file, "", -1, "", generates + generates, 1},
        {file, "", "", "", space_group_loaded, "x,y,z;-x,-y+1/2,-z", generates + loads, 1},
        {"", "", "", "", space_group_loaded, "x,y,z;-x,-y+1/2,-z", loads, 0}};
    write_file("err.txt", "from an earlier run");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.makes);
        const auto remove_file = [&] {
            if (!row.makes.empty()) std::filesystem::remove(file);
        };
        sg_file_names_3 names;
        names.set_symbol("P_21/c");
        EXPECT_EQ(run(row.makes, [&] { names.generate_in_child(); }), row.of_child);
        EXPECT_EQ(console, row.runs == 0 ? "" : "Generating " + file + "\n");
        EXPECT_EQ(n_runs, row.runs);
        remove_file();
        sg_catalogue_entry_3 entry;
        entry.unique_axis = "y";
        int result = -1;
        EXPECT_EQ(run(row.makes, [&] { result = load_space_group(entry, "P_21/c"); }),
                  row.of_record);
        EXPECT_EQ(result, row.record);
        EXPECT_EQ(entry.number, result == space_group_loaded ? 14 : -1);
        EXPECT_EQ(entry.unique_axis, result == space_group_loaded ? "" : "y");
        EXPECT_EQ(n_runs, row.runs);
        remove_file();
        xyz_list_3 ops = xyz_list_of("-x,y,z");
        string_3 path;
        EXPECT_EQ(run(row.makes, [&] { load_group_xyzs_3(ops, path, "P_21/c"); }), row.of_ops);
        EXPECT_EQ(path, file.c_str());
        EXPECT_EQ(arrays_of(ops), arrays_of(xyz_list_of(row.ops)));
        EXPECT_EQ(console, row.console);
        EXPECT_EQ(n_runs, row.makes == "nothing" ? 2 : row.runs);
    }
    write_file(file, "xyzs /*");
    xyz_list_3 ops;
    string_3 path;
    EXPECT_EQ(run("", [&] { load_group_xyzs_3(ops, path, "P_21/c"); }), " Unclosed comment block");
    EXPECT_EQ(console, "") << "nothing is loaded";
}

TEST_F(GroupFiles, SymbolsThatAreNotRun) {
    sg_catalogue_entry_3 entry;
    for (const auto& row : {std::pair{"", space_group_empty},
                            {"xyz", space_group_invalid},
                            {"p1;echo", space_group_not_generated}}) {
        int found = -1;
        EXPECT_EQ(run("nothing", [&] { found = load_space_group(entry, row.first); }), "");
        EXPECT_EQ(found, row.second) << row.first;
        EXPECT_EQ(n_runs, 0U) << "nothing that the command interpreter might take";
    }
}

}  // namespace
