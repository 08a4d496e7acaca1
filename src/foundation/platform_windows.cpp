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

const char platform_separator = '\\';

const char* const platform_program_prefix = "";

bool platform_is_separator(char c) { return c == '\\' || c == '/'; }

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

bool platform_start(const char* command, bool wait, bool no_window) {
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    string_3 line("cmd /C ");  // the call may write into the text
    line.append(command);
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
