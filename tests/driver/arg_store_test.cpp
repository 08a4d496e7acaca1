#include <gtest/gtest.h>

#include "driver/arg_store_3.h"
#include "support/expect_failure.h"

namespace {

TEST(ArgStore, FindsOptionsAndValues) {
    const char* const argv[] = {"lomar6", "-hhh", "-dir", "-hhh",  "-DIR",
                                "-e",     "mark", "-e",   "other", nullptr};
    arg_store_3 args;
    EXPECT_EQ(args.find_arg("-e"), not_found);
    for (const int argc : {1, 6, 9}) {
        error_marker = nullptr;
        args.set_up(argc, argv);
        EXPECT_EQ(error_marker, argc == 9 ? argv[6] : nullptr) << argc;
    }
    error_marker = nullptr;
    EXPECT_EQ(args.find_arg("-hhh"), 1);
    EXPECT_EQ(args.find_arg("-DIR"), 4);
    EXPECT_EQ(args.find_arg("-d"), not_found);
    EXPECT_EQ(args.find_arg("lomar6"), not_found);
    EXPECT_STREQ(args.value_of(2), "-hhh");
    EXPECT_STREQ(args.value_of(5, 3), "other");
    EXPECT_FAILURE(args.value_of(5, 4), " Missing value for -e");
}

}  // namespace
