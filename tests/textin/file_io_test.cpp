#include "textin/file_io.h"

#include <gtest/gtest.h>
#include <string>

#include "foundation/not_found.h"
#include "foundation/platform.h"
#include "support/expect_failure.h"
#include "support/scratch_dir.h"
#include "textout/console.h"
#include "textout/sstring_out.h"

namespace {

const std::string sep(1, platform_separator);
const bool drives = platform_separator == '\\';

struct FileIo : testing::Test {
    scratch_dir dir;
    const std::string here = dir.path().string() + sep;
};

struct named_file : file_io {
    explicit named_file(const std::string& path) {
        set_name(path.c_str());
        set_mode("rb");
    }
};

TEST_F(FileIo, NamesAndDirectories) {
    const struct {
        std::string given, name, part;
        bool absolute = false;
    } rows[] = {{"", "", ""},
                {"a.txt", "a.txt", ""},
                {"x//y/a", "x//y/a", "x//y/"},
                {"\"x/a b\"", "x/a b", "x/"},
                {"\"a", "a", ""},
                {"x/\"", "x/\"", "x/"},
                {"x\\a", "x\\a", drives ? "x\\" : ""},
                {"x/c:a", "x/c:a", drives ? "x/c:" : "x/"},
                {sep + "x" + sep + "a", sep + "x" + sep + "a", sep + "x" + sep, true},
                {"\"" + sep + "a\"", sep + "a", sep, true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.given);
        const named_file file(row.given);
        EXPECT_EQ(file.file_name(), row.name);
        EXPECT_EQ(file.directory(), row.absolute ? row.part : here + row.part);
        string_3 part("before");
        dir_part(row.name.c_str(), part);
        EXPECT_EQ(part.data, row.part);
        const int start = static_cast<int>(row.part.size());
        EXPECT_EQ(dir_start(row.name.c_str()), row.name.empty() ? not_found : start);
    }
}

TEST_F(FileIo, OpenFlags) {
    write_file("a.txt", "x");
    const std::string message = "Cannot open file no" + sep + "a.txt";
    for (const int flags : {0, 16, 32, 48}) {
        SCOPED_TRACE(flags);
        sstring_out console;
        push_console_stream(console);
        named_file file("no/a.txt");
        if ((flags & 16) != 0) {
            EXPECT_FAILURE(file.open(flags), " " + message);
        } else {
            EXPECT_EQ(file.open(flags), 0);
        }
        EXPECT_EQ(console.text(), flags == 32 ? message + "\n" : "");
        EXPECT_EQ(file.file_name(), "no" + sep + "a.txt");
        EXPECT_EQ(file.open("\"a.txt\"", flags), 1);
        pop_console_stream();
    }
}

TEST_F(FileIo, ExistingFiles) {
    std::filesystem::create_directory("sub");
    for (const char* name : {"a.txt", "\"a.txt\""}) {
        write_file("a.txt", "x");
        EXPECT_EQ(file_exists(name), 1) << name;
        EXPECT_EQ(file_size("a.txt"), 1);
        EXPECT_EQ(remove_file(name), 1) << name;
        EXPECT_FALSE(std::filesystem::exists("a.txt")) << name;
    }
    for (const char* name : {"a.txt", "sub", "no/a.txt", ""}) {
        EXPECT_EQ(file_exists(name), 0) << name;
        EXPECT_EQ(remove_file(name), 0) << name;
    }
    EXPECT_TRUE(std::filesystem::exists("sub"));
    EXPECT_EQ(file_size("a.txt"), 0);
    write_file("a.txt", "x");
    std::filesystem::resize_file("a.txt", 0x80000001U);  // no text can be so long
    EXPECT_EQ(file_size("a.txt"), 2147483647);
    std::filesystem::permissions("a.txt", std::filesystem::perms::owner_read);
    const bool root = static_cast<bool>(std::ofstream("a.txt", std::ios::app));
    EXPECT_EQ(file_exists("a.txt"), root);
}

TEST_F(FileIo, CurrentDirectory) {
    string_3 text;
    current_dir(text);
    EXPECT_EQ(text.data + sep, here);
    current_dir_slash(text);
    EXPECT_EQ(text.data, here);
    std::filesystem::current_path(dir.path().root_path());
    current_dir_slash(text);
    EXPECT_EQ(text.data, dir.path().root_path().string());
    if (drives) return;  // no path can be too long there
    std::filesystem::current_path(dir.path());
    for (int i = 0; i < 5; ++i) {
        const std::string name(200, 'd');
        std::filesystem::create_directory(name);
        std::filesystem::current_path(name);
    }
    EXPECT_FAILURE(current_dir(text), " getcwd error");
}

}  // namespace
