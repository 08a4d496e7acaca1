// Compiled as C++17, which the CIF grammar needs.
#include "formats/cif_reader.h"

#include <cctype>
#include <gemmi/cif.hpp>
#include <stdexcept>

namespace lomar {

namespace {

namespace cif = gemmi::cif;

std::string in_small_letters(const std::string& text) {
    std::string result = text;
    for (char& c : result) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return result;
}

bool is_wanted(const std::string& tag, const std::vector<std::string>& prefixes) {
    for (const std::string& prefix : prefixes) {
        if (tag.compare(0, prefix.size(), prefix) == 0) return true;
    }
    return false;
}

void add_column(const cif::Loop& loop, std::size_t column, cif_item item, cif_block& block) {
    for (std::size_t at = column; at < loop.values.size(); at += loop.tags.size()) {
        item.values.push_back(cif::as_string(loop.values[at]));
    }
    block.items.push_back(std::move(item));
}

void add_item(const cif::Item& item, const std::vector<std::string>& prefixes, cif_block& block) {
    if (item.type == cif::ItemType::Pair) {
        const std::string tag = in_small_letters(item.pair[0]);
        if (!is_wanted(tag, prefixes)) return;
        block.items.push_back({tag, {cif::as_string(item.pair[1])}, item.line_number});
    } else if (item.type == cif::ItemType::Loop) {
        for (std::size_t i = 0; i < item.loop.tags.size(); ++i) {
            const std::string tag = in_small_letters(item.loop.tags[i]);
            if (is_wanted(tag, prefixes))
                add_column(item.loop, i, {tag, {}, item.line_number}, block);
        }
    }
}

// `cif:3:12(40): expected ...` as `line 3: expected ...`.
std::string plain_message(const std::string& text) {
    std::size_t at = text.find(':');
    if (at == std::string::npos) return text;
    std::size_t end = at + 1;
    while (end < text.size() && std::isdigit(static_cast<unsigned char>(text[end])) != 0) ++end;
    if (end == at + 1) return text;
    const std::string line = text.substr(at + 1, end - at - 1);
    const std::size_t reason = text.find_first_of(" ", end);
    if (reason == std::string::npos) return "line " + line + ": this is no CIF";
    return "line " + line + ": this is no CIF:" + text.substr(reason);
}

}  // namespace

std::vector<cif_block> read_cif(const std::string& text, const std::vector<std::string>& prefixes) {
    cif::Document document;
    try {
        document = cif::read_memory(text.data(), text.size(), "cif");
    } catch (const std::exception& failure) {
        throw std::runtime_error(plain_message(failure.what()));
    }
    std::vector<cif_block> blocks;
    for (const cif::Block& found : document.blocks) {
        cif_block& block = blocks.emplace_back();
        block.name = found.name;
        for (const cif::Item& item : found.items) add_item(item, prefixes, block);
    }
    return blocks;
}

}  // namespace lomar
