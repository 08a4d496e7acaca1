#pragma once

#include <gtest/gtest.h>
#include <optional>
#include <string>

#include "foundation/except_3.h"

/// The message of the failure that an action ends in, if it does.
template <typename Action>
std::optional<std::string> message_of(Action&& action) {
    if (const auto failure = failure_of(action)) return failure->text();
    return std::nullopt;
}

/// Expects a statement to fail with exactly this message, its leading blank included.
#define EXPECT_FAILURE(statement, message) \
    EXPECT_EQ(message_of([&] { statement; }), std::optional<std::string>(message))
