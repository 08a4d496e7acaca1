#pragma once

#include <gtest/gtest.h>
#include <optional>
#include <string>

#include "foundation/except_3.h"

/// The message of the failure that an action ends in, if it does.
template <typename Action>
std::optional<std::string> message_of(Action&& action) {
    try {
        action();
    } catch (except_3* failure) {
        std::string message = failure->text();
        delete failure;
        return message;
    }
    return std::nullopt;
}

/// Expects a statement to fail with exactly this message, its leading blank included.
#define EXPECT_FAILURE(statement, message) \
    EXPECT_EQ(message_of([&] { statement; }), std::optional<std::string>(message))
