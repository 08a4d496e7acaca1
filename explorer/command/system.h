#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>

// What lomar needs of the operating system. Each system has a source of its own with all the
// bodies, chosen by the build.
namespace lomar::system {

inline constexpr int standard_input = 0;
inline constexpr int standard_output = 1;
inline constexpr int standard_error = 2;

/// To be called first. Bytes are written as they are; a closed pipe and a limit of file size make
/// a write fail instead of ending the process; a standard stream that the caller has closed fails
/// too, and no file takes its place.
void prepare_streams();

/// Whether a person sees what is written to the stream, in a window that knows colours.
bool is_terminal(int stream);

/// Writes all of the text.
std::error_code write(int file, std::string_view text);
/// Reads to the end of the file and adds it to the text; a text of more than `most` bytes is too
/// large a file.
std::error_code read(int file, std::string& text, std::size_t most);
/// Whether a write failed since nobody reads any more.
bool is_closed_pipe(std::error_code error);

/// Opens a file for reading; the result is not negative if that works.
int open_for_reading(const std::string& path, std::error_code& error);
/// Opens a file that is there, such as a device, for writing.
int open_for_writing(const std::string& path, std::error_code& error);
/// Creates a file for writing; one that is there already is an error. It is removed when the user
/// interrupts the program, until forget_temporary or the next such file.
int create_temporary(const std::string& path, std::error_code& error);
/// The last temporary file has its final name, or is gone.
void forget_temporary();
std::error_code close(int file);
/// Gives a file a new name; a file that has this name is replaced in one step.
std::error_code replace(const std::string& from, const std::string& to);
/// Removes a file, if there is one.
void remove(const std::string& path);
/// Whether an existing file may be written.
bool is_writable(const std::string& path);

/// A number that no other process has at this time.
long process_number();

}  // namespace lomar::system
