#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "library/groups/child_process.h"

/// While it lives, command lines aren't run: it notes them and does what a test wants done instead.
template <typename Action>
struct command_stand_in final : command_runner_3 {
    explicit command_stand_in(Action action_) : action(action_) { set_command_runner(this); }
    command_stand_in(const command_stand_in&) = delete;
    command_stand_in& operator=(const command_stand_in&) = delete;
    ~command_stand_in() { set_command_runner(nullptr); }

    void run(const char* command, int flags) override {
        EXPECT_EQ(flags, 3);
        commands.emplace_back(command);
        action();
    }

    Action action;
    std::vector<std::string> commands;
};
