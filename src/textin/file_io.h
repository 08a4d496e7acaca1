#pragma once

#include <cstdio>

#include "foundation/string_3.h"

// Open flags.
inline constexpr int throw_if_not_opened = 16;
inline constexpr int tell_if_not_opened = 32;  ///< on the console; tested after throwing
inline constexpr int open_or_throw = 48;       ///< the two together: a failure always throws

/// What text and binary files have in common, read or written.
class B_file_io {
public:
    static constexpr int attached_flag = 1;  ///< somebody else opened `file` and will close it

    B_file_io() = default;
    B_file_io(const B_file_io&) = delete;
    B_file_io& operator=(const B_file_io&) = delete;
    virtual ~B_file_io() = default;

protected:
    std::FILE* file = nullptr;
    int io_flags = 0;
};

/// A file known by its path. It is closed when the object is destroyed.
class file_io : public B_file_io {
public:
    ~file_io() override { file_io::close(); }

    /// set_name(name), then open(flags).
    virtual int open(const char* new_name, int flags);
    /// Opens the file of set_name in the mode of set_mode; 1 if that went well. If not, the flags
    /// decide: the message " Cannot open file" with the path is thrown, or is written on the
    /// console, or the 0 is all. Memory that runs out is std::bad_alloc, whatever the flags.
    virtual int open(int flags);
    /// The name, with the platform's separators once the file was opened.
    virtual const char* file_name() const { return name.data; }
    /// The full path of where the file is, up to the separator. It is that of the time of set_name:
    /// a later change of the current directory doesn't show.
    virtual const char* directory() const { return dir.data; }
    /// Closes the handle, unless it was attached. A second call does nothing.
    virtual void close();

    /// Stores a name less its double quotes, and works out the directory. Opens nothing.
    void set_name(const char* new_name);
    void set_mode(const char* new_mode) { mode = new_mode; }

protected:
    string_3 mode;
    string_3 name;
    string_3 dir;
};

/// 1 if the file can be opened for reading and writing, else 0. What isn't the file's fault is no
/// answer: fails with " Cannot open file" when the process has too many files open, and with
/// std::bad_alloc when memory runs out.
int file_exists(const char* name);

/// Removes the file if it exists; 1 if it did. Fails as file_exists does.
int remove_file(const char* name);

/// The size of a file in bytes, 0 if it can't be had; sizes above 2^31 - 1 give 2^31 - 1.
int file_size(const char* name);

/// The process's current directory. Fails with " getcwd error".
void current_dir(string_3& out);

/// The current directory with a separator at its end.
void current_dir_slash(string_3& out);

/// Where the file's own name begins in a path. An empty path has none: not_found.
int dir_start(const char* path);

/// The part of a path before the file's own name.
void dir_part(const char* path, string_3& out);
