#pragma once

#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <vector>

#include "support/scratch_dir.h"

/// What a run of the program left on standard output.
struct tool_run {
    int status;  ///< the exit status, or -1 when the program was ended by a signal
    std::string console;
    std::string errors;  ///< standard error, where only a sanitizer writes
};

extern char** environ;

/// Runs the built program in the current folder.
inline tool_run run_tool(const std::vector<std::string>& arguments) {
    std::vector<std::string> texts = arguments;
    texts.insert(texts.begin(), "lomar6");
    std::vector<char*> argv;
    for (std::string& text : texts) argv.push_back(text.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    constexpr int flags = O_CREAT | O_WRONLY | O_TRUNC;
    posix_spawn_file_actions_addopen(&files, 1, ".console", flags, 0600);
    posix_spawn_file_actions_addopen(&files, 2, ".errors", flags, 0600);
    pid_t child = 0;
    int status = 0;
    const int started = posix_spawn(&child, LOMAR6_PROGRAM, &files, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&files);
    if (started != 0 || waitpid(child, &status, 0) != child) throw std::runtime_error("no run");
    const tool_run result = {WIFEXITED(status) ? WEXITSTATUS(status) : -1, read_file(".console"),
                             read_file(".errors")};
    std::filesystem::remove(".console");
    std::filesystem::remove(".errors");
    return result;
}
