#include "formats/cif_text.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace lomar {

namespace {

bool is_white(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

std::string lower(std::string_view text) {
    std::string result(text);
    for (char& c : result) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return result;
}

class scanner {
public:
    explicit scanner(std::string_view text) : text_(text) {}

    std::vector<cif_token> all() {
        std::vector<cif_token> tokens;
        for (skip_white(); at_ < text_.size(); skip_white()) tokens.push_back(next());
        return tokens;
    }

private:
    void skip_white() {
        while (at_ < text_.size()) {
            if (is_white(text_[at_])) {
                ++at_;
            } else if (text_[at_] == '#') {
                at_ = std::min(text_.find('\n', at_), text_.size());
            } else {
                return;
            }
        }
    }

    bool at_line_start() const { return at_ == 0 || text_[at_ - 1] == '\n'; }

    bool ends_quote(std::size_t at) const {
        return at >= text_.size() || is_white(text_[at]) || text_[at] == '#';
    }

    cif_token next() {
        const std::size_t begin = at_;
        const char c = text_[at_];
        cif_token::kind what = cif_token::kind::value;
        if (c == ';' && at_line_start()) {
            const std::size_t end = text_.find("\n;", at_);
            at_ = end == std::string_view::npos ? text_.size() : end + 2;
        } else if (c == '\'' || c == '"') {
            do {
                at_ = std::min(text_.find(c, at_ + 1), text_.size());
            } while (!ends_quote(at_ + 1));
            at_ = std::min(at_ + 1, text_.size());
        } else {
            while (at_ < text_.size() && !is_white(text_[at_])) ++at_;
            std::string_view word = text_.substr(begin, at_ - begin);
            what = kind_of_word(word);
            at_ = begin + word.size();
        }
        return {what, begin, at_};
    }

    // A keyword ends where a comment begins; the word is cut to it.
    static cif_token::kind kind_of_word(std::string_view& word) {
        if (word[0] == '_') return cif_token::kind::tag;
        const std::string small = lower(word.substr(0, 8));
        if (small.starts_with("data_")) return cif_token::kind::block;
        if (small.starts_with("save_")) return cif_token::kind::other;
        for (const auto& [keyword, what] : {std::pair("global_", cif_token::kind::block),
                                            std::pair("loop_", cif_token::kind::loop),
                                            std::pair("stop_", cif_token::kind::other)}) {
            const std::size_t size = std::string_view(keyword).size();
            if (!small.starts_with(keyword)) continue;
            if (word.size() != size && word[size] != '#') continue;
            word = word.substr(0, size);
            return what;
        }
        return cif_token::kind::value;
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

void add_tag(std::string_view text, const cif_token& token, cif_table& table) {
    const std::string_view name = text.substr(token.begin, token.end - token.begin);
    table.names.emplace_back(name);
    std::string tag = lower(name);
    std::replace(tag.begin(), tag.end(), '.', '_');
    table.tags.push_back(std::move(tag));
}

// Reads the table that begins at a token, and moves on to the one after it.
cif_table read_table(std::string_view text, const std::vector<cif_token>& tokens, std::size_t& i) {
    cif_table table;
    table.begin = tokens[i].begin;
    const bool is_loop = tokens[i].what == cif_token::kind::loop;
    if (is_loop) ++i;
    while (i < tokens.size() && tokens[i].what == cif_token::kind::tag) {
        add_tag(text, tokens[i++], table);
        if (!is_loop) break;
    }
    while (i < tokens.size() && tokens[i].what == cif_token::kind::value) {
        table.values.push_back(tokens[i++]);
        if (!is_loop) break;
    }
    table.end = tokens[i - 1].end;
    return table;
}

}  // namespace

int cif_table::column(std::string_view tag) const {
    const auto found = std::find(tags.begin(), tags.end(), tag);
    return found == tags.end() ? -1 : static_cast<int>(found - tags.begin());
}

std::vector<cif_section> cif_sections(std::string_view text) {
    const std::vector<cif_token> tokens = scanner(text).all();
    std::vector<cif_section> sections;
    for (std::size_t i = 0; i < tokens.size();) {
        const cif_token& token = tokens[i];
        if (token.what == cif_token::kind::block) {
            cif_section& section = sections.emplace_back();
            section.name = text.substr(token.begin, token.end - token.begin);
            section.head = token.end;
            ++i;
        } else if (!sections.empty() &&
                   (token.what == cif_token::kind::loop || token.what == cif_token::kind::tag)) {
            sections.back().tables.push_back(read_table(text, tokens, i));
        } else {
            ++i;
        }
    }
    return sections;
}

std::string_view cif_plain(std::string_view text, const cif_token& token) {
    std::string_view value = text.substr(token.begin, token.end - token.begin);
    if (value.size() >= 2 && (value[0] == '\'' || value[0] == '"')) {
        return value.substr(1, value.size() - 2);
    }
    return value;
}

int line_of(std::string_view text, std::size_t place) {
    return 1 + static_cast<int>(std::count(
                   text.begin(), text.begin() + static_cast<std::ptrdiff_t>(place), '\n'));
}

void text_edits::replace(std::size_t begin, std::size_t end, std::string text) {
    edits_.push_back({begin, end, std::move(text)});
}

std::string text_edits::applied_to(std::string_view text) {
    std::stable_sort(edits_.begin(), edits_.end(),
                     [](const edit& a, const edit& b) { return a.begin < b.begin; });
    std::string result;
    std::size_t at = 0;
    for (const edit& change : edits_) {
        result.append(text.substr(at, change.begin - at)).append(change.text);
        at = change.end;
    }
    return result.append(text.substr(at));
}

}  // namespace lomar
