#include "page/table_writer.h"

namespace lomar {

table_writer::table_writer(std::string_view id, std::string_view caption,
                           const std::vector<std::string>& columns)
    : n_columns(columns.size()) {
    const std::string caption_id = std::string(id) + "-caption";
    out.open("div").attribute("class", "scroll").attribute("role", "region");
    out.attribute("tabindex", "0").attribute("aria-labelledby", caption_id);
    out.open("table").attribute("id", id);
    out.open("caption").attribute("id", caption_id).text(caption).close();
    out.open("thead").open("tr");
    for (const std::string& column : columns) {
        out.open("th").attribute("scope", "col").text(column).close();
    }
    out.close().close().open("tbody").text("\n");
}

table_writer& table_writer::stretch(std::string_view headline) {
    end_row();
    out.close().open("tbody").open("tr").open("th").attribute("scope", "rowgroup");
    out.attribute("colspan", std::to_string(n_columns)).text(headline).close().close().text("\n");
    return *this;
}

table_writer& table_writer::row(std::string_view attribute, std::string_view value) {
    end_row();
    out.open("tr");
    if (!attribute.empty()) out.attribute(attribute, value);
    in_row = true;
    return *this;
}

table_writer& table_writer::head(std::string_view text) {
    out.open("th").attribute("scope", "row").text(text).close();
    return *this;
}

table_writer& table_writer::cell(std::string_view text) {
    out.open("td").text(text).close();
    return *this;
}

table_writer& table_writer::code(std::string_view text) {
    out.open("td").attribute("class", "code").text(text).close();
    return *this;
}

table_writer& table_writer::markup(std::string_view content) {
    out.open("td").markup(content).close();
    return *this;
}

void table_writer::end_row() {
    if (in_row) out.close().text("\n");
    in_row = false;
}

std::string table_writer::result() {
    end_row();
    out.close().close().close();
    return out.result() + "\n";
}

}  // namespace lomar
