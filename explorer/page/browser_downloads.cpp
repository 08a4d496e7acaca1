#include "page/browser_downloads.h"

#include <stdexcept>

#include "formats/magnetic_report.h"
#include "formats/operator_files.h"
#include "formats/show_json.h"
#include "page/diagrams.h"
#include "page/magnetic_page.h"
#include "page/typed_text.h"

namespace lomar {

namespace {

using offer_list = std::initializer_list<std::pair<const char*, const char*>>;

// The files of texts, and the drawings, which all groups have.
json offers(offer_list texts) {
    const offer_list drawings = {{"elements-a.svg", "SVG along a"},
                                 {"elements-b.svg", "SVG along b"},
                                 {"elements-c.svg", "SVG along c"},
                                 {"positions.svg", "SVG of positions"}};
    json result = json::array();
    for (const offer_list& list : {texts, drawings}) {
        for (const auto& [format, label] : list) {
            result.push_back({{"format", format}, {"label", label}});
        }
    }
    return result;
}

// `elements-b.svg`, `positions.svg`: what is drawn, and along which axis.
std::string drawn(const std::vector<symop>& operators, const std::string& name,
                  const std::string& format) {
    const std::string key = format == "positions.svg"
                                ? std::string("positions-") + "abc"[customary_axis(operators)]
                                : format.substr(0, format.find('.'));
    diagram_options options = figure_options(key);
    options.name = name;
    return diagram_svg(operators, options);
}

std::string space_file(const named_group& named, const std::string& format) {
    const space_group& group = named.group;
    if (format == "sg") return sg_file(group);
    if (format == "cif") return cif_block(group);
    if (format == "shelx.txt") return shelx_cards(group);
    if (format == "xyz") return xyz_lines(group);
    if (format == "csv") return csv_operators(group);
    if (format == "json") return json_text(show_json(report_of(named)));
    return drawn(group.operators, group.name, format);
}

std::string magnetic_file(const magnetic_facts& row, const std::string& format) {
    const magnetic_group group = group_of(row);
    if (format == "mcif") return magnetic_cif(group);
    if (format == "xyz") return magnetic_xyz(group);
    if (format == "json") return magnetic_json(group, "BNS number");
    return drawn(group.operators, magnetic_name(row), format);
}

// A name for the file: what is no letter or digit becomes an underscore.
std::string stem_of(const std::string& name) {
    std::string result;
    for (const char c : name) {
        const bool plain = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') ||
                           (c >= 'A' && c <= 'Z') || c == '-' || c == '.';
        result += plain ? c : '_';
    }
    return result;
}

}  // namespace

json downloads_of_groups() {
    return offers({{"sg", ".sg of lomar6"},
                   {"cif", "CIF"},
                   {"shelx.txt", "SHELX"},
                   {"json", "JSON"},
                   {"xyz", "x,y,z"},
                   {"csv", "CSV"}});
}

json downloads_of_magnetic_groups() {
    return offers({{"mcif", "magnetic CIF"}, {"json", "JSON"}, {"xyz", "x,y,z"}});
}

json download(const std::string& name, const std::string& format) {
    const typed_subject subject = read_typed(name);
    const bool space = subject.group.has_value();
    for (const json& offer : space ? downloads_of_groups() : downloads_of_magnetic_groups()) {
        if (offer["format"] != format) continue;
        const std::string separator = format.find(".svg") == std::string::npos ? "." : "_";
        json result;
        result["file"] = stem_of(name) + separator + format;
        result["text"] =
            space ? space_file(*subject.group, format) : magnetic_file(*subject.magnetic, format);
        return result;
    }
    throw std::runtime_error("there is no such file of " + name);
}

}  // namespace lomar
