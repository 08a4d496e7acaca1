#include "support/run_tool.h"

#include <optional>
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

// The exit status of a command, or nothing if it doesn't start, or doesn't end within 20 seconds.
std::optional<DWORD> status_of(std::string line, STARTUPINFOA& startup) {
    PROCESS_INFORMATION process = {};
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &process)) {
        return std::nullopt;
    }
    DWORD status = 0;
    const bool ended = WaitForSingleObject(process.hProcess, 20000) == WAIT_OBJECT_0;
    if (!ended) TerminateProcess(process.hProcess, 1);
    GetExitCodeProcess(process.hProcess, &status);
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
    return ended ? std::optional(status) : std::nullopt;
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
    std::optional<DWORD> status;
    // Wine fails to start one process in some thousands.
    for (int trial = 0; !status && trial < 3; ++trial) status = status_of(line, startup);
    CloseHandle(startup.hStdOutput);
    CloseHandle(startup.hStdError);
    if (!status) throw std::runtime_error("no run of " + line);
    const tool_run result = {static_cast<int>(*status), read_file(".console"),
                             read_file(".errors")};
    std::filesystem::remove(".console");
    std::filesystem::remove(".errors");
    return result;
}
