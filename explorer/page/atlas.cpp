#include "page/atlas.h"

#include "page/group_page.h"
#include "page/magnetic_page.h"

namespace lomar {

namespace {

// From a page of the atlas to the others.
page_links links_between_pages() {
    page_links links;
    links.to_setting = [](const setting& row) { return "../settings/" + file_name(row); };
    links.to_magnetic = [](const magnetic_facts& row) { return "../magnetic/" + file_name(row); };
    links.index = "../index.html";
    return links;
}

}  // namespace

std::size_t atlas_size() { return settings().size() + magnetic_groups().size() + 1; }

std::string file_name(const setting& row) {
    std::string number = std::to_string(row.number);
    number.insert(0, 3 - number.size(), '0');
    std::string name;
    for (const char c : row.name()) {
        if (c == '/') {
            name += '-';
        } else if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '-') {
            name += c;
        } else {
            name += '_';
        }
    }
    return number + "_" + name + ".html";
}

std::string file_name(const magnetic_facts& row) { return std::string(row.bns_number) + ".html"; }

void make_atlas(const std::function<void(const std::string& path, std::string_view text)>& sink) {
    const page_links links = links_between_pages();
    for (const setting& row : settings()) {
        sink("settings/" + file_name(row), group_page(report_of({group_of(row), {}, {}}), links));
    }
    for (const magnetic_facts& row : magnetic_groups()) {
        sink("magnetic/" + file_name(row), magnetic_page(group_of(row), "", links));
    }
    sink("index.html", atlas_index());
}

}  // namespace lomar
