#include <map>

#include "group/catalogue_names.h"
#include "page/atlas.h"
#include "page/document.h"
#include "page/page_assets.h"
#include "page/page_links.h"
#include "page/table_writer.h"

namespace lomar {

namespace {

// All names of each setting, in the catalogue's spelling, with blanks around each.
std::map<const setting*, std::string> names_of_settings() {
    std::map<const setting*, std::string> result;
    for (const catalogue_name& name : catalogue_names()) {
        std::string& names = result[name.row];
        names.append(names.empty() ? "" : " ").append(name.key);
    }
    return result;
}

std::string settings_table() {
    table_writer table("settings", "Settings of the space groups",
                       {"No.", "Symbol", "Setting", "Hall symbol", "Schoenflies", "Crystal system",
                        "Point group"});
    const auto names = names_of_settings();
    for (const setting& row : settings()) {
        const auto known = names.find(&row);
        table.row("data-names", known == names.end() ? "" : known->second);
        table.head(std::to_string(row.number));
        table.markup(anchor("settings/" + file_name(row), escaped(row.name())));
        table.cell(row.variant()).code(row.hall).cell(row.schoenflies);
        table.cell(row.crystal_system).cell(row.point_group);
    }
    return table.result();
}

std::string magnetic_table() {
    table_writer table("magnetic", "Magnetic space groups",
                       {"BNS", "Symbol", "OG", "OG symbol", "UNI symbol", "Type", "Crystal system",
                        "Point group of the family"});
    for (const magnetic_facts& row : magnetic_groups()) {
        const setting& family = standard_setting(row.family_number);
        table.row().head(row.bns_number);
        table.markup(anchor("magnetic/" + file_name(row), escaped(row.bns_symbol)));
        table.cell(row.og_number).cell(row.og_symbol).cell(row.uni_symbol);
        table.cell(std::to_string(row.type)).cell(family.crystal_system).cell(family.point_group);
    }
    return table.result();
}

}  // namespace

std::string atlas_index() {
    const std::string search =
        "<h1>Space groups</h1>\n<form id=\"search\" role=\"search\" hidden>\n"
        "<label for=\"words\">Name, number, crystal system or point group</label>\n"
        "<input id=\"words\" type=\"search\" autocomplete=\"off\" spellcheck=\"false\">\n"
        "<p id=\"count\" role=\"status\"></p>\n</form>\n"
        "<nav aria-label=\"On this page\"><ul><li><a href=\"#settings-list\">Settings of the space "
        "groups</a></li><li><a href=\"#magnetic-list\">Magnetic space groups</a></li></ul></nav>\n";
    return html_document("Space groups", "",
                         search + "<section id=\"settings-list\"><h2>Space groups</h2>\n" +
                             settings_table() +
                             "</section>\n<section id=\"magnetic-list\"><h2>Magnetic space "
                             "groups</h2>\n" +
                             magnetic_table() + "</section>\n<script>\n" +
                             std::string(index_script) + "</script>\n");
}

}  // namespace lomar
