#include "support/run_tool.h"

#include <stdexcept>
#include <windows.h>

namespace {

// An argument as the C library takes it apart again: backslashes count before a quote alone.
std::string quoted(const std::string& text) {
    std::string out = "\"";
    std::size_t backslashes = 0;
    for (const char c : text) {
        if (c == '"') out.append(backslashes + 1, '\\');
        backslashes = c == '\\' ? backslashes + 1 : 0;
        out += c;
    }
    return out.append(backslashes, '\\') + '"';
}

HANDLE open_output(const char* name) {
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    return CreateFileA(name, GENERIC_WRITE, 0, &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                       nullptr);
}

}  // namespace

tool_run run_tool(const std::vector<std::string>& arguments) {
    std::string line = quoted(LOMAR6_PROGRAM);
    for (const std::string& text : arguments) line += ' ' + quoted(text);
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = open_output(".console");
    startup.hStdError = open_output(".errors");
    PROCESS_INFORMATION process = {};
    // Wine fails to start one process in some thousands, with an error that says no more.
    for (int trial = 1; !CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                        nullptr, &startup, &process);
         ++trial) {
        const DWORD error = GetLastError();
        if (error != ERROR_INTERNAL_ERROR || trial == 3) {
            throw std::runtime_error("CreateProcess: error " + std::to_string(error));
        }
    }
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = 0;
    GetExitCodeProcess(process.hProcess, &status);
    for (HANDLE handle :
         {process.hProcess, process.hThread, startup.hStdOutput, startup.hStdError}) {
        CloseHandle(handle);
    }
    const tool_run result = {static_cast<int>(status), read_file(".console"), read_file(".errors")};
    std::filesystem::remove(".console");
    std::filesystem::remove(".errors");
    return result;
}
