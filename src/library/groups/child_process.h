#pragma once

#include "driver/request/sg_file_names_3.h"
#include "foundation/string_out.h"

// Running the tool, or a program like it, in another process. The exit status says nothing, so the
// option -e names an error file: if it is there at the end, the child failed.

/// Where the error file is created: "err.txt" in what data_dir() was at the first call.
const string_out& error_file_path();

/// A command line that can be run. All objects use one error file, so don't keep two at a time.
class args_err_3 : public string_out {
public:
    /// An empty line. An old error file, of whatever run, is removed.
    args_err_3();
    args_err_3(const args_err_3&) = delete;
    args_err_3& operator=(const args_err_3&) = delete;
    /// Removes the error file, if it can.
    ~args_err_3();

    /// Appends ` -e "..."` with the path of the error file.
    void add_error_option();

    /// Runs the line and looks for the error file: 0, and removes it, if there is one; else 1.
    /// Fails as file_exists does when it can't look.
    int run();
};

/// Runs the names' run_command with the error option, so that the .sg file comes into being; the
/// result is that of args_err_3::run. A runner gets the command line; without one the tool gets its
/// arguments as they are, and no command interpreter sees them. A symbol with characters that no
/// symbol has isn't run and gives 0.
int run_generation(sg_file_names_3& names);

/// Takes over the running of command lines from std::system, where a program can do it better.
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

/// Has the command interpreter run a command. 0 if that could be started, else 1.
int run_process(const char* command, int flags);

/// Remembers the current directory.
void push_dir();
/// Returns to the directory that was remembered last, and forgets it; nothing if there is none.
void pop_dir();
/// Changes the current directory; a failure isn't noticed.
void set_current_dir(const char* path);
