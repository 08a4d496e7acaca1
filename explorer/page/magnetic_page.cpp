#include "page/magnetic_page.h"

#include "drawing/svg_writer.h"
#include "page/diagrams.h"
#include "page/document.h"
#include "page/facts_list.h"
#include "page/operator_table.h"
#include "page/symbol_markup.h"

namespace lomar {

namespace {

std::string name_markup(std::string_view symbol, std::string_view number) {
    return symbol_markup(symbol) + " (" + std::string(number) + ")";
}

std::string facts_of(const magnetic_facts& row, std::string_view notation,
                     const page_links& links) {
    constexpr const char* types[] = {"1, colourless", "2, grey",
                                     "3, primed operators and no primed translation",
                                     "4, primed translations"};
    facts_list facts;
    facts.add_markup("BNS", name_markup(row.bns_symbol, row.bns_number));
    facts.add_markup("OG", name_markup(row.og_symbol, row.og_number));
    facts.add_markup("UNI", name_markup(row.uni_symbol, std::to_string(row.uni_number)));
    facts.add("Found as", notation);
    facts.add("Type", types[row.type - 1]);
    facts.add_markup("Family", links.link(standard_setting(row.family_number)));
    if (row.type == 4) {
        facts.add_markup("Unprimed operators", links.link(standard_setting(row.parent_number)));
    }
    facts.add("Lattice", std::string(1, row.lattice));
    facts.add("BNS cell in the OG cell", row.og_to_bns);
    return facts.result();
}

}  // namespace

std::string magnetic_name(const magnetic_facts& row) {
    return std::string(row.bns_symbol) + " (" + std::string(row.bns_number) + ")";
}

std::string magnetic_article(const magnetic_group& group, std::string_view notation,
                             const page_links& links, const std::string& diagrams,
                             const std::string& operators) {
    const magnetic_facts& row = *group.row;
    return "<section id=\"names\"><h1>" + symbol_markup(row.bns_symbol) + "</h1>\n" +
           facts_of(row, notation, links) + "</section>\n" + diagrams +
           "<section id=\"operators\"><h2>Operators</h2>\n" + operators +
           "</section>\n<section id=\"family\"><h2>Others of this family</h2>\n" +
           links.family_list(row.family_number, &row) + "</section>\n";
}

std::string magnetic_page(const magnetic_group& group, std::string_view notation,
                          const page_links& links) {
    const std::string name = magnetic_name(*group.row);
    return html_document(
        name, links.index,
        magnetic_article(group, notation, links, diagram_section({group.operators, name, true}),
                         operator_table(group.operators, group.centring, true)));
}

}  // namespace lomar
