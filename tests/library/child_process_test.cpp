#include "library/child_process.h"

#include <chrono>
#include <gtest/gtest.h>
#include <string>
#include <thread>

#include "driver/sg_file_names_3.h"
#include "foundation/platform.h"
#include "support/command_stand_in.h"
#include "support/expect_failure.h"
#include "support/scratch_dir.h"
#include "textin/file_io.h"
#include "textout/console.h"
#include "textout/sstring_out.h"

namespace {

namespace fs = std::filesystem;

// A folder in which the error file is err.txt.
struct Child : testing::Test {
    Child() { push_console_stream(console); }
    ~Child() override { pop_console_stream(); }

    static bool error_file_is_there() { return fs::exists("err.txt"); }
    static void make_error_file() { write_file("err.txt", ""); }
    // The scripts and commands below are those of a POSIX shell.
    static bool has_posix_shell() { return platform_separator == '/'; }
    // A program in the current folder.
    static void make_script(const std::string& path, const std::string& commands) {
        write_file(path, "#!/bin/sh\n" + commands);
        fs::permissions(path, fs::perms::owner_all);
    }
    static std::string directory() {
        string_3 path;
        current_dir(path);
        return path.data;
    }

    scratch_dir dir;
    sstring_out console;
};

TEST_F(Child, ErrorFileBelongsToTheCommand) {
    EXPECT_STREQ(error_file_path().text(), "err.txt");
    make_error_file();
    {
        args_err_3 command;
        EXPECT_FALSE(error_file_is_there()) << "what was left behind tells nothing";
        EXPECT_EQ(command.length(), 0);
        static_cast<string_out&>(command) << "program -x";
        command.add_error_option();
        EXPECT_STREQ(command.text(), "program -x -e \"err.txt\"");
        make_error_file();
    }
    EXPECT_FALSE(error_file_is_there());
}

TEST_F(Child, RunTellsByTheErrorFile) {
    {
        command_stand_in child([] {});
        args_err_3 command;
        EXPECT_EQ(command.run(), 1);
        EXPECT_EQ(child.commands, std::vector<std::string>{""});
    }
    {
        command_stand_in child(make_error_file);
        args_err_3 command;
        EXPECT_EQ(command.run(), 0);
        EXPECT_FALSE(error_file_is_there());
    }
}

TEST_F(Child, RealChildren) {
    if (!has_posix_shell()) GTEST_SKIP();
    make_script("good", "echo \"$@\" > arguments\n");
    make_script("bad", "while [ \"$1\" != -e ]; do shift; done\n: > \"$2\"\n");
    const struct {
        const char* command;
        int succeeded;
    } rows[] = {
        {"./good a 'b c'", 1},
        {"\"good\" a \"b c\"", 1},
        {"./bad", 0},
        {"\"bad\" a b", 0},
        // Without a marker nothing tells that there is no such program.
        {"./none 2>nowhere", 1},
        {"\"nowhere/none\" 2>nowhere", 1},
    };
    for (const auto& row : rows) {
        args_err_3 command;
        static_cast<string_out&>(command) << row.command;
        command.add_error_option();
        EXPECT_EQ(command.run(), row.succeeded) << row.command;
        EXPECT_FALSE(error_file_is_there());
    }
    EXPECT_EQ(read_file("arguments"), "a b c -e err.txt\n");
}

TEST_F(Child, RunsInTheDirectoryOfTheProgram) {
    fs::create_directories("some folder/inner");
    make_script("some folder/inner/program", "");
    const std::string here = directory();
    const std::string folder = here + platform_separator + "some folder";
    const std::string inner = folder + platform_separator + "inner";
    const std::string prefix = platform_program_prefix;
    const struct {
        const char* command;
        std::string line;
        std::string directory;
    } rows[] = {
        {"program a b", "program a b", here},
        {"some folder/inner/program", "some folder/inner/program", here},
        {"\"some folder/inner/program\" -x \"y z\"", prefix + "program  -x \"y z\"", inner},
        {"\"some folder/inner/program\"-x", prefix + "program -x", inner},
        {"\"some folder/other\" -x", "other  -x", folder},
        {"\"nowhere/other\" -x", "other  -x", here},
        {"\"other\"", "other ", here},
        {"\"\" x", " x", here},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.command);
        std::string directory_of_run;
        command_stand_in child([&] { directory_of_run = directory(); });
        run_command_line(row.command);
        EXPECT_EQ(child.commands, std::vector<std::string>{row.line});
        EXPECT_EQ(directory_of_run, row.directory);
        EXPECT_EQ(directory(), here);
    }
    command_stand_in child([] {});
    EXPECT_TRUE(message_of([] { run_command_line("\"some folder/inner/program -x"); }));
    EXPECT_EQ(child.commands.size(), 0U);
    EXPECT_EQ(directory(), here);
}

TEST_F(Child, DirectoryStack) {
    fs::create_directories("a/b");
    const std::string here = directory();
    push_dir();
    set_current_dir("a");
    push_dir();
    set_current_dir("b");
    set_current_dir("nowhere");
    EXPECT_EQ(fs::path(directory()), fs::path(here) / "a" / "b");
    pop_dir();
    EXPECT_EQ(fs::path(directory()), fs::path(here) / "a");
    pop_dir();
    EXPECT_EQ(directory(), here);
    pop_dir();
    EXPECT_EQ(directory(), here) << "nothing to return to";
}

TEST_F(Child, Processes) {
    if (!has_posix_shell()) GTEST_SKIP();
    EXPECT_EQ(run_process("echo x> waited", wait_for_process), 0);
    EXPECT_TRUE(fs::exists("waited"));
    EXPECT_EQ(run_process("exit 3", wait_for_process | process_without_window), 0);
    EXPECT_EQ(run_process("while [ ! -e go ]; do sleep 0.01; done; echo x> alone", 0), 0);
    EXPECT_FALSE(fs::exists("alone")) << "a process that isn't waited for";
    write_file("go", "");
    for (int i = 0; i < 1000 && !fs::exists("alone"); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    EXPECT_TRUE(fs::exists("alone"));
}

TEST_F(Child, GeneratesAMissingFile) {
    fs::create_directory("sg");
    sg_file_names_3 names;
    names.set_symbol("P_21/c");
    const std::string path = std::string("sg") + platform_separator + "p21oc.sg";
    {
        command_stand_in child(make_error_file);
        EXPECT_FAILURE(names.generate_in_child(), " Error running \"lomar6\" p21/c -dir \"sg\"");
        EXPECT_FALSE(error_file_is_there());
    }
    {
        command_stand_in child([&] { write_file(path, ""); });
        names.generate_in_child();
        EXPECT_EQ(child.commands.size(), 1U);
        names.generate_in_child();
        EXPECT_EQ(child.commands.size(), 1U) << "the file is there now";
    }
    EXPECT_EQ(console.text(), "Generating " + path + "\nGenerating " + path + "\n");
}

}  // namespace
