#pragma once

#include <cstdint>

// What the program needs of the operating system. Each system has a source file of its own with
// all the bodies, chosen by the build, and nothing else in the program differs between systems.

/// The character between the parts of a path: `/` or `\`.
extern const char platform_separator;

/// The prefix that runs a program from the current directory.
extern const char* const platform_program_prefix;

/// Whether a character separates the parts of a path as a user may type it.
bool platform_is_separator(char c);

/// Whether a file in a directory can have the name: it is no device, and has no character that the
/// system doesn't take in names, such as a separator.
bool platform_can_name_file(const char* name);

/// Whether a directory's text may end in `c` directly before a file's name: a separator, or the
/// colon of a drive.
bool platform_ends_directory(char c);

/// Whether a path doesn't depend on the current directory.
bool platform_is_absolute(const char* path);

/// Puts the current directory and a NUL into the buffer. False if it can't be read or is too long.
bool platform_current_dir(char* buffer, int size);

/// Makes `path` the current directory. False if that fails.
bool platform_set_current_dir(const char* path);

/// The size of a file in bytes, or -1 if it can't be had.
std::int64_t platform_file_size(const char* path);

/// Removes a file. False if that fails.
bool platform_remove_file(const char* path);

/// Creates a file without contents, or empties the one that is there. Asks for no memory. False if
/// that fails.
bool platform_make_empty_file(const char* path);

/// Puts standard output into binary mode, where that makes a difference.
void platform_prepare_output();

/// The installed memory in units of 1024 bytes. False if it can't be had.
bool platform_physical_memory(std::uint64_t& kilobytes);

/// The bytes of memory that the process has in use now. False if they can't be had.
bool platform_working_set(std::uint64_t& bytes);

/// Runs a program and waits for its end. `arguments` begins with the program and ends with a null;
/// no command interpreter looks at it. A bare name is searched for as the system does that. False
/// if the program can't be started.
bool platform_run_program(const char* const* arguments);

/// Starts the system's command interpreter with a command, and waits for its end if `wait` is set.
/// With `no_window` it gets no console window of its own, where there are such. False if it can't
/// be started.
bool platform_start(const char* command, bool wait, bool no_window);
