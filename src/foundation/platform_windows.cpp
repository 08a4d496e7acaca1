#define PSAPI_VERSION 2
#include <windows.h>
// windows.h must come first
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <psapi.h>
#include <sys/stat.h>

#include "foundation/platform.h"
#include "foundation/string_3.h"

namespace {

// A device keeps its name when an ending follows: AUX.sg is AUX.
bool is_device(const char* name) {
    string_3 stem(name);
    stem.replace_char('.', 0);
    stem.to_lower();
    for (const char* device : {"con", "prn", "aux", "nul", "conin$", "conout$"}) {
        if (stem == device) return true;
    }
    const bool has_number = text_starts(stem.data, "com") || text_starts(stem.data, "lpt");
    return has_number && stem.length() == 4 && stem.data[3] >= '0' && stem.data[3] <= '9';
}

}  // namespace

const char platform_separator = '\\';

const char* const platform_program_prefix = "";

bool platform_is_separator(char c) { return c == '\\' || c == '/'; }

bool platform_can_name_file(const char* name) {
    for (const char* c = name; *c != 0; ++c) {
        if ((*c > 0 && *c < ' ') || text_index(*c, "\\/:*?\"<>|") != not_found) return false;
    }
    return !is_device(name);
}

bool platform_ends_directory(char c) { return c == '\\' || c == '/' || c == ':'; }

bool platform_is_absolute(const char* path) {
    return path[0] == '\\' || (path[0] != 0 && path[1] == ':');
}

bool platform_current_dir(char* buffer, int size) {
    const DWORD length = GetCurrentDirectoryA(static_cast<DWORD>(size), buffer);
    return length > 0 && length < static_cast<DWORD>(size);
}

bool platform_set_current_dir(const char* path) { return SetCurrentDirectoryA(path) != 0; }

std::int64_t platform_file_size(const char* path) {
    struct _stat64 status;
    return _stat64(path, &status) == 0 ? std::int64_t{status.st_size} : -1;
}

bool platform_remove_file(const char* path) { return std::remove(path) == 0; }

bool platform_make_empty_file(const char* path) {
    const HANDLE file = CreateFileA(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    return file != INVALID_HANDLE_VALUE && CloseHandle(file) != 0;
}

void platform_prepare_output() { _setmode(_fileno(stdout), _O_BINARY); }

bool platform_physical_memory(std::uint64_t& kilobytes) {
    ULONGLONG value = 0;
    if (GetPhysicallyInstalledSystemMemory(&value) == 0) return false;
    kilobytes = value;
    return true;
}

bool platform_working_set(std::uint64_t& bytes) {
    PROCESS_MEMORY_COUNTERS counters;
    if (K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters) == 0) return false;
    bytes = counters.WorkingSetSize;
    return true;
}

namespace {

// The call may write into the line.
bool start_line(string_3& line, bool wait, bool no_window) {
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    if (CreateProcessA(nullptr, line.data, nullptr, nullptr, FALSE,
                       no_window ? CREATE_NO_WINDOW : 0, nullptr, nullptr, &startup,
                       &process) == 0) {
        return false;
    }
    if (wait) WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
    return true;
}

}  // namespace

bool platform_start(const char* command, bool wait, bool no_window) {
    string_3 line("cmd /C ");
    line.append(command);
    return start_line(line, wait, no_window);
}

namespace {

// Appends an argument so that the started program finds it unchanged: in quotes, with a backslash
// before a quote and one more for each backslash before that or before the end.
void append_quoted(string_3& line, const char* argument) {
    line.append(line.is_empty() ? "\"" : " \"");
    int backslashes = 0;
    for (const char* c = argument;; ++c) {
        const bool doubled = *c == 0 || *c == '"';
        for (; doubled && backslashes > 0; --backslashes) line.append('\\');
        if (*c == 0) break;
        if (*c == '"') line.append('\\');
        backslashes = *c == '\\' ? backslashes + 1 : 0;
        line.append(*c);
    }
    line.append('"');
}

}  // namespace

bool platform_run_program(const char* const* arguments) {
    string_3 program(".\\");  // the call would look elsewhere before the current directory
    program.append(*arguments);
    program.append(".exe");
    string_3 line;
    append_quoted(line, platform_file_size(program.data) >= 0 ? program.data : *arguments);
    while (*++arguments != nullptr) append_quoted(line, *arguments);
    return start_line(line, true, false);
}
