#pragma once

#include <cstdio>

#include "foundation/string_3.h"

// Open flags.
inline constexpr int throw_if_not_opened = 16;
inline constexpr int tell_if_not_opened = 32;  ///< on the console; tested after throwing
inline constexpr int open_or_throw = 48;       ///< what every opening in the system uses

/// What all files have: a handle of the standard library.
class B_file_io {
public:
    static constexpr int attached_flag = 1;  ///< the handle came from outside and isn't closed

    B_file_io() = default;
    B_file_io(const B_file_io&) = delete;
    B_file_io& operator=(const B_file_io&) = delete;
    virtual ~B_file_io() = default;

protected:
    std::FILE* file = nullptr;
    int io_flags = 0;
};

/// A file tied to a name. It is closed when the object goes.
class file_io : public B_file_io {
public:
    ~file_io() override { file_io::close(); }

    /// set_name(name), then open(flags).
    virtual int open(const char* new_name, int flags);
    /// Opens by the stored name and mode, and gives 1. On failure throws " Cannot open file" and
    /// the path, or writes that to the console, or gives 0, as the flags say.
    virtual int open(int flags);
    /// The name, with the platform's separators once the file was opened.
    virtual const char* file_name() const { return name.data; }
    /// The directory of the file, with a separator at its end.
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

/// 1 if the file can be opened for reading and writing, else 0.
int file_exists(const char* name);

/// Removes the file if it exists; 1 if it did.
int remove_file(const char* name);

/// The size of a file in bytes, 0 if it can't be had; sizes above 2^31 - 1 give 2^31 - 1.
int file_size(const char* name);

/// The process's current directory. Fails with " getcwd error".
void current_dir(string_3& out);

/// The current directory with a separator at its end.
void current_dir_slash(string_3& out);

/// The index behind the last separator of a path, 0 if there is none, not_found if it is empty.
int dir_start(const char* path);

/// The text of a path up to its last separator, that one included.
void dir_part(const char* path, string_3& out);
