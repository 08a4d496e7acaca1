#include "library/groups/child_process.h"

#include <cstdlib>

#include "driver/request/sg_file_names_3.h"
#include "foundation/except_3.h"
#include "foundation/platform.h"
#include "textin/data_dir.h"
#include "textin/file_io.h"
#include "textin/sstring_in.h"
#include "textout/console.h"

namespace {

command_runner_3* command_runner = nullptr;

string_list_3& directory_stack() {
    static string_list_3 stack;
    return stack;
}

void run_line(const char* line) {
    constexpr int runner_flags = 3;
    if (command_runner != nullptr) {
        command_runner->run(line, runner_flags);
    } else {
        // A failure shows in the missing result of the child.
        [[maybe_unused]] const int status = std::system(line);
    }
}

// While it lives, the current directory is that of a program.
struct directory_visit {
    explicit directory_visit(const char* program) {
        string_3 directory;
        dir_part(program, directory);
        push_dir();
        set_current_dir(directory.data);
    }
    directory_visit(const directory_visit&) = delete;
    directory_visit& operator=(const directory_visit&) = delete;
    ~directory_visit() { pop_dir(); }
};

// How to start a program in the directory of its path.
string_3 local_name(const char* path) {
    const int start = dir_start(path);
    string_3 name(platform_file_size(path) >= 0 ? platform_program_prefix : "");
    name.append(path + (start == not_found ? 0 : start));
    return name;
}

}  // namespace

const string_out& error_file_path() {
    static const string_out path = [] {
        string_out text;
        text << data_path("err.txt");
        return text;
    }();
    return path;
}

args_err_3::args_err_3() { remove_file(error_file_path().text()); }

args_err_3::~args_err_3() {
    try {
        remove_file(error_file_path().text());
    } catch (except_3* failure) {
        delete failure;
    } catch (...) {
        return;  // the file stays
    }
}

void args_err_3::add_error_option() {
    static_cast<string_out&>(*this) << " -e \"" << error_file_path().text() << '"';
}

int args_err_3::run() {
    run_command_line(text());
    return remove_file(error_file_path().text()) == 0;
}

namespace {

// Without a command interpreter, which would look into the names of directories for commands.
void run_tool(sg_file_names_3& names) {
    const string_3 path = data_path("lomar6");
    const string_3 program = local_name(path.data);
    const char* const arguments[] = {
        program.data, names.lower_symbol().data, "-dir", names.out_dir().data,
        "-e",         error_file_path().text(),  nullptr};
    const directory_visit visit(path.data);
    platform_run_program(arguments);
}

}  // namespace

int run_generation(sg_file_names_3& names) {
    constexpr char_set_3 symbol_characters("abcdefghijklmnopqrstuvwxyz0123456789/:-");
    for (const char* c = names.lower_symbol().data; *c != 0; ++c) {
        if (!symbol_characters.contains(*c)) return 0;
    }
    args_err_3 command;
    static_cast<string_out&>(command) << names.run_command();
    command.add_error_option();
    if (command_runner != nullptr) return command.run();
    run_tool(names);
    return remove_file(error_file_path().text()) == 0;
}

void set_command_runner(command_runner_3* runner) { command_runner = runner; }

void run_command_line(const char* command) {
    if (*command != '"') return run_line(command);
    sstring_in in(command);
    string_3 path;
    in.read_word(path);
    string_out line;
    line << local_name(path.data);
    line.separate();
    line << in.current();
    const directory_visit visit(path.data);
    run_line(line.text());
}

int run_process(const char* command, int flags) {
    const bool wait = (flags & wait_for_process) != 0;
    return platform_start(command, wait, (flags & process_without_window) != 0) ? 0 : 1;
}

void push_dir() {
    string_3 directory;
    current_dir(directory);
    directory_stack().add(directory);
}

void pop_dir() {
    string_list_3& stack = directory_stack();
    if (stack.n == 0) return;
    set_current_dir(stack[stack.last()].data);
    --stack.n;
}

void set_current_dir(const char* path) {
    [[maybe_unused]] const bool changed = platform_set_current_dir(path);
}
