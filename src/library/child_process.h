#pragma once

#include "driver/sg_file_names_3.h"
#include "foundation/string_out.h"

// Running another program, and learning whether it failed by a marker file: the child is told the
// name of an error file with the option -e, and creates that file when it fails.

/// The path of the error file: the data directory's prefix and "err.txt", fixed at first use.
const string_out& error_file_path();

/// A command line for a child process. While it lives, the error file belongs to it: one at a time.
class args_err_3 : public string_out {
public:
    /// An empty line. Removes an error file that was left behind.
    args_err_3();
    args_err_3(const args_err_3&) = delete;
    args_err_3& operator=(const args_err_3&) = delete;
    /// Removes the error file.
    ~args_err_3();

    /// Appends ` -e "..."` with the path of the error file.
    void add_error_option();

    /// Runs the line; 1 if no error file has appeared, else 0, and the error file is gone.
    int run();
};

/// Generates the .sg file of a group by its run_command, with the error option; 1 if no error file
/// has appeared, else 0. A symbol with characters that no symbol has, which the command interpreter
/// might take for its own, isn't run and gives 0.
int run_generation(sg_file_names_3& names);

/// Runs command lines in the place of the standard library's `system`.
class command_runner_3 {
public:
    virtual void run(const char* command, int flags) = 0;

protected:
    ~command_runner_3() = default;
};

/// Sets who runs command lines; null is `system`. The runner isn't owned.
void set_command_runner(command_runner_3* runner);

/// Runs a command line and waits for its end. A line that begins with a quoted path is run from the
/// directory of that path, by the bare name of the program. Nothing is reported.
void run_command_line(const char* command);

inline constexpr int wait_for_process = 1;
inline constexpr int process_without_window = 2;

/// Starts the command interpreter with a command; 0 if it started, else 1.
int run_process(const char* command, int flags);

/// Remembers the current directory.
void push_dir();
/// Returns to the directory that was remembered last, and forgets it; nothing if there is none.
void pop_dir();
/// Changes the current directory; a failure isn't noticed.
void set_current_dir(const char* path);
