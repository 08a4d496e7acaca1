#include "page/document.h"

#include "drawing/diagram.h"
#include "drawing/svg_writer.h"
#include "page/page_assets.h"

namespace lomar {

std::string html_document(std::string_view title, std::string_view index, const std::string& body) {
    std::string result =
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
        "<meta name=\"color-scheme\" content=\"light dark\">\n<title>" +
        escaped(title) + "</title>\n<style>\n";
    result.append(page_style).append(diagram_style());
    result += "\n</style>\n</head>\n<body>\n";
    if (!index.empty()) {
        result += "<header><a href=\"" + escaped(index) + "\">All groups</a></header>\n";
    }
    result += "<main>\n" + body + "</main>\n<footer>Made by lomar " LOMAR_VERSION "</footer>\n";
    result.append("<script>\n").append(page_script).append("</script>\n");
    return result + "</body>\n</html>\n";
}

}  // namespace lomar
