#pragma once

#include <cstdlib>
#include <gtest/gtest.h>

/// Runs the body in a process of its own, in which no other test ran before, since what it does
/// lasts as long as the process. On Windows only ctest gives it one.
template <typename Body>
void in_own_process(Body body) {
#ifdef _WIN32
    body();
#else
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT((body(), std::exit(testing::Test::HasFailure() ? 1 : 0)),
                testing::ExitedWithCode(0), "");
#endif
}
