#include <CLI/App.hpp>

#include "command/command.h"
#include "group/named_subject.h"
#include "page/group_page.h"
#include "page/magnetic_page.h"

namespace lomar {

namespace {

class page_command : public command {
public:
    std::string_view name() const override { return "page"; }
    std::string_view summary() const override {
        return "all that is told of a group, with its diagrams, as an HTML page";
    }
    std::vector<std::string_view> formats() const override { return {"html"}; }

    void declare(CLI::App& app) override {
        app.add_option("SYMBOL", symbol, "the name of a space group or magnetic group")->required();
        app.add_flag("--magnetic", magnetic, "the symbol is that of a magnetic group");
    }

    void run(output& out) override {
        named_subject found = subject_named(symbol, magnetic);
        out.write(found.magnetic != nullptr
                      ? magnetic_page(group_of(*found.magnetic), found.notation)
                      : group_page(report_of(std::move(*found.group))));
    }

private:
    std::string symbol;
    bool magnetic = false;
};

}  // namespace

std::unique_ptr<command> make_page_command();
std::unique_ptr<command> make_page_command() { return std::make_unique<page_command>(); }

}  // namespace lomar
