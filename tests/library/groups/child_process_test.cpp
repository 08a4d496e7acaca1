#include "library/groups/child_process.h"

#include <chrono>
#include <gtest/gtest.h>
#include <string>
#include <thread>

#include "foundation/heap_watch.h"
#include "foundation/platform.h"
#include "support/command_stand_in.h"
#include "support/expect_failure.h"
#include "support/scratch_dir.h"
#include "textin/data_dir.h"
#include "textin/file_io.h"
#include "textout/console.h"
#include "textout/sstring_out.h"

#if __has_include(<sys/wait.h>)
#include <sys/wait.h>
#endif

namespace {

namespace fs = std::filesystem;

const bool is_windows = platform_separator == '\\';
const std::string prefix = platform_program_prefix;

// A program in a folder, in the language of the command interpreter.
void make_script(const std::string& path, const std::string& posix, const std::string& windows) {
    const std::string file = is_windows ? path + ".bat" : path;
    write_file(file, is_windows ? "@echo off\r\n" + windows : "#!/bin/sh\n" + posix);
    fs::permissions(file, fs::perms::owner_all);
}

std::string directory() {
    string_3 path;
    current_dir(path);
    return path.data;
}

// A folder in which the error file is err.txt.
struct Child : testing::Test {
    Child() { push_console_stream(console); }
    ~Child() override { pop_console_stream(); }
    static void make_error_file() { write_file("err.txt", ""); }
    scratch_dir dir;
    sstring_out console;
};

TEST_F(Child, TellsByTheErrorFile) {
    make_script("good", "echo $*> arguments\n", "echo %*> arguments\r\n");
    make_script("bad", "echo x> err.txt\n", "echo x> err.txt\r\n");
    const struct {
        std::string command;
        int succeeded;
    } rows[] = {{"\"good\" a \"b c\"", 1},
                {prefix + "bad", 0},
                // Without an error file nothing shows that there is no such program.
                {"\"nowhere/none\" 2>nowhere", 1}};
    for (const auto& row : rows) {
        make_error_file();  // an old one means nothing
        {
            args_err_3 command;
            static_cast<string_out&>(command) << row.command.c_str();
            command.add_error_option();
            EXPECT_EQ(command.text(), row.command + " -e \"err.txt\"");
            EXPECT_EQ(command.run(), row.succeeded) << row.command;
            EXPECT_FALSE(fs::exists("err.txt"));
            make_error_file();
        }
        EXPECT_FALSE(fs::exists("err.txt"));
    }
    std::string arguments = read_file("arguments");
    if (is_windows) std::erase_if(arguments, [](char c) { return c == '"' || c == '\r'; });
    EXPECT_EQ(arguments, "a b c -e err.txt\n");
}

// When memory runs out in the look for the error file, a child that failed isn't taken for another.
TEST_F(Child, FailuresAreNotLostWithMemory) {
    command_stand_in child(make_error_file);
    const int failures = fail_each_request([&](std::size_t failing) {
        int result = 0;
        const bool complete = survives(failing, [&] {
            args_err_3 command;
            result = command.run();
        });
        EXPECT_EQ(result, 0);
        fs::remove("err.txt");
        return complete;
    });
    EXPECT_GE(failures, 4);
}

TEST_F(Child, RunsInTheDirectoryOfTheProgram) {
    fs::create_directories("some folder/inner");
    write_file("some folder/inner/program", "");
    const std::string here = directory();
    const std::string folder = here + platform_separator + "some folder";
    const std::string inner = folder + platform_separator + "inner";
    const struct {
        const char* command;
        std::string line;
        std::string directory;
    } rows[] = {
        {"some folder/inner/program", "some folder/inner/program", here},
        {"\"some folder/inner/program\" -x \"y z\"", prefix + "program  -x \"y z\"", inner},
        {"\"some folder/other\" -x", "other  -x", folder},
        {"\"nowhere/other\" -x", "other  -x", here},
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
    fs::create_directory("a");
    const std::string here = directory();
    const std::string inner = here + platform_separator + "a";
    push_dir();
    set_current_dir("a");
    set_current_dir("nowhere");
    push_dir();
    set_current_dir("..");
    EXPECT_EQ(directory(), here);
    for (const std::string& path : {inner, here, here}) {  // in the end nothing to return to
        pop_dir();
        EXPECT_EQ(directory(), path);
    }
}

TEST_F(Child, Processes) {
    make_script("wait", "while [ ! -e go ]; do sleep 0.01; done\necho x> alone\n",
                ":again\r\nif not exist go goto again\r\necho x> alone\r\n");
    EXPECT_EQ(run_process("echo x> waited", wait_for_process), 0);
    EXPECT_TRUE(fs::exists("waited"));
    EXPECT_EQ(run_process("exit 3", wait_for_process | process_without_window), 0);
    EXPECT_EQ(run_process((prefix + "wait").c_str(), 0), 0);
    EXPECT_FALSE(fs::exists("alone")) << "a process that isn't waited for";
#if __has_include(<sys/wait.h>)
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "nor is it left to this one to collect it";
#endif
    write_file("go", "");
    for (int i = 0; i < 1000 && !fs::exists("alone"); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    EXPECT_TRUE(fs::exists("alone"));
}

TEST_F(Child, TheToolGetsItsArgumentsAsTheyAre) {
    if (is_windows) GTEST_SKIP() << "there only a built program can be started like this";
    for (const std::string name :
         {"plain", "$(touch made)", "`touch made`;touch made", "\"&'\\ "}) {
        SCOPED_TRACE(name);
        const std::string folder = dir.path().string() + "/" + name + "/";
        fs::create_directory(folder);
        // The path of the error file is from the folder in which a process first asked for it.
        make_script(folder + "lomar6",
                    "printf '%s|' \"$@\" > got\n[ -e fail ] && cd .. && echo > \"$5\"\n", "");
        data_dir() = folder.c_str();
        sg_file_names_3 names;
        names.set_symbol("P_21/c");
        names.set_out_dir(name.c_str());
        EXPECT_EQ(run_generation(names), 1);
        EXPECT_EQ(read_file(folder + "got"),
                  "p21/c|-dir|" + name + "|-e|" + error_file_path().text() + "|");
        write_file(folder + "fail", "");
        EXPECT_EQ(run_generation(names), 0);
        data_dir() = "";
    }
    EXPECT_FALSE(fs::exists("made"));
}

}  // namespace
