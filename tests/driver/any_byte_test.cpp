#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "driver/sg_driver_3.h"
#include "foundation/platform.h"
#include "support/scratch_dir.h"
#include "textout/console.h"
#include "textout/sstring_out.h"

namespace {

std::string console_of(std::vector<const char*> words) {
    sstring_out console;
    push_console_stream(console);
    words.insert(words.begin(), "lomar6");
    sg_driver_3().run(static_cast<int>(words.size()), words.data());
    pop_console_stream();
    return console.text();
}

TEST(Driver, AnyByteAsSymbol) {
    const scratch_dir dir;
    for (const char* name : {"lomar5.txt", "sgrots3.txt"}) {
        std::filesystem::copy_file(std::filesystem::path(DATA_DIR) / name, name);
    }
    const std::string not_found = " Space group not found in lomar5.txt\n";
    const std::string bad_symbol = " Error in space group symbol\n";
    for (int byte = 1; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        const char text[] = {c, 0};
        const bool letter = std::string_view("pabcifrPABCIFR").find(c) != std::string_view::npos;
        const std::string expected = c == '(' || c == ')' || c == ' ' ? " No Spacegroup\n"
                                     : letter                         ? not_found
                                     : c >= '1' && c <= '9'           ? ""
                                                                      : bad_symbol;
        EXPECT_EQ(console_of({text}), expected) << byte;
        const bool names_file = c == '/' || c == ':' || platform_can_name_file(text);
        EXPECT_EQ(console_of({("P9" + std::string(text)).c_str()}),
                  names_file ? not_found : bad_symbol)
            << byte;
    }
}

TEST(Driver, AMarkerIsThatOfItsRun) {
    const scratch_dir dir;
    const std::string failure = " Cannot open file lomar5.txt\n";
    EXPECT_EQ(console_of({"P_1", "-e", "first"}), failure);
    EXPECT_TRUE(std::filesystem::remove("first"));
    EXPECT_EQ(console_of({"P_1"}), failure);
    EXPECT_FALSE(std::filesystem::exists("first"));
}

}  // namespace
