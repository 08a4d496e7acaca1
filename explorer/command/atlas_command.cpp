#include <CLI/App.hpp>
#include <filesystem>

#include "command/command.h"
#include "command/system.h"
#include "page/atlas.h"

namespace lomar {

namespace {

namespace fs = std::filesystem;

void make_directory(const fs::path& path) {
    std::error_code error;
    fs::create_directories(path, error);
    if (!error && !fs::is_directory(path)) error = std::make_error_code(std::errc::not_a_directory);
    if (error) throw input_error("can't make '" + path.string() + "': " + error.message());
}

// Counts the files on a terminal, and says nothing elsewhere.
class progress {
public:
    ~progress() {
        if (shown) system::write(system::standard_error, "\r\x1b[K");
    }
    void count() {
        ++done;
        if (!shown || done % 16 != 0) return;
        system::write(system::standard_error, "\r" + std::to_string(done) + " of " +
                                                  std::to_string(atlas_size()) + " pages");
    }

private:
    std::size_t done = 0;
    bool shown = system::is_terminal(system::standard_error);
};

class atlas_command : public command {
public:
    std::string_view name() const override { return "atlas"; }
    std::string_view summary() const override {
        return "pages of all space groups and magnetic groups, with a list";
    }
    std::vector<std::string_view> formats() const override { return {"html"}; }

    void declare(CLI::App& app) override {
        app.add_option("DIRECTORY", directory,
                       "where the pages go; other files in it stay as they are")
            ->required();
    }

    void run(output& out) override {
        if (directory.empty()) throw usage_error("atlas wants the name of a directory");
        const fs::path place(directory);
        make_directory(place / "settings");
        make_directory(place / "magnetic");
        {
            progress shown;
            make_atlas([&](const std::string& path, std::string_view text) {
                write_file((place / path).string(), text);
                shown.count();
            });
        }
        out.write(std::to_string(atlas_size()) + " pages, listed in " +
                  (place / "index.html").string() + "\n");
    }

private:
    std::string directory;
};

}  // namespace

std::unique_ptr<command> make_atlas_command();
std::unique_ptr<command> make_atlas_command() { return std::make_unique<atlas_command>(); }

}  // namespace lomar
