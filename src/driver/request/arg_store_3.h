#pragma once

#include "foundation/not_found.h"

/// The name of the file that a failed run creates (option -e); null when none was given.
extern const char* error_marker;

/// Creates the marker file, empty, also when memory has run out; does nothing when no name was
/// given.
void touch_error_marker();

/// The command line, program's name included. It stays main's: only pointers are kept.
class arg_store_3 {
public:
    /// Stores the arguments and takes the error marker's name from them; without -e there is none.
    void set_up(int argc_, const char* const* argv_);

    int count() const { return argc; }
    const char* argument(int i) const { return argv[i]; }

    /// The index of `text` on the command line, or not_found. The symbol at index 1 counts as well;
    /// the program's name doesn't.
    int find_arg(const char* text) const;

    bool has(const char* text) const { return find_arg(text) != not_found; }

    /// The argument `place` places after the option at index `i`, from 1. Fails with
    /// " Missing value for" and the option when the arguments end before.
    const char* value_of(int i, int place = 1) const;

private:
    int argc = 0;
    const char* const* argv = nullptr;
};
