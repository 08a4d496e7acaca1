#include "group/assumptions.h"

#include "group/catalogue_names.h"

namespace lomar {

namespace {

// `-b2` in its parts `-b` and `2`.
struct axis_and_cell {
    std::string_view axis;
    std::string_view cell;
};

axis_and_cell parts_of_qualifier(std::string_view qualifier) {
    const std::size_t end = std::min(qualifier.find_first_of("123"), qualifier.size());
    return {qualifier.substr(0, end), qualifier.substr(end)};
}

bool is_monoclinic(const setting& row) { return row.number >= 3 && row.number <= 15; }

// Settings that the tables lack a qualifier for tell the axis by the place of their element.
std::string unique_axis_of(const setting& row) {
    const std::string_view axis = parts_of_qualifier(row.qualifier).axis;
    if (!axis.empty()) return std::string(axis);
    const std::string_view rest = row.symbol.substr(2);
    if (!rest.starts_with("1 ")) return "a";
    return rest.starts_with("1 1 ") ? "c" : "b";
}

class note_taker {
public:
    note_taker(const symbol_parts& typed, named_group& found)
        : typed_(typed), found_(found), row_(*found.group.row) {}

    void take() {
        if (row_.choice == "1" && !names_choice()) {
            found_.assumed.push_back("origin choice 1");
            offer(row_.symbol, "2", "origin choice 2");
        }
        if (row_.choice == "H" && typed_.mark != "h") {
            found_.assumed.push_back(typed_.base.starts_with('h') ? "H read as R on hexagonal axes"
                                                                  : "hexagonal axes");
            offer(row_.symbol, "R", "rhombohedral axes");
        }
        if (is_monoclinic(row_)) take_axis();
        if (has_e()) take_e();
    }

private:
    // A mark other than the axes, or its letter at the end.
    bool names_choice() const {
        if (typed_.mark.starts_with('1')) return true;
        if (is_group_number(typed_.base)) return false;
        return typed_.base.ends_with('s') || typed_.base.ends_with('1');
    }

    void offer(std::string_view symbol, std::string_view choice, const std::string& what) {
        for (const setting& other : settings()) {
            if (other.number != row_.number || other.symbol != symbol || other.choice != choice) {
                continue;
            }
            found_.alternatives.push_back(other.name() + " (" + what + ")");
        }
    }

    void take_axis() {
        const std::string axis = unique_axis_of(row_);
        const std::string_view cell = parts_of_qualifier(row_.qualifier).cell;
        const bool names_axis = typed_.base == own_key(row_) || !typed_.mark.empty();
        if (!names_axis) {
            found_.assumed.push_back(std::string("unique axis ") + axis.back());
            for (const std::string_view other : {"b", "c", "a"}) {
                if (axis.find(other) == std::string::npos) {
                    offer_qualifier(std::string(other).append(cell), "unique axis ", other);
                }
            }
        }
        const bool names_cell =
            typed_.base == own_key(row_) || typed_.mark.find_first_of("123") != std::string::npos;
        if (names_cell || cell.empty()) return;
        found_.assumed.push_back("cell choice " + std::string(cell));
        for (const std::string_view other : {"1", "2", "3"}) {
            if (other != cell) {
                offer_qualifier(std::string(axis).append(other), "cell choice ", other);
            }
        }
    }

    void offer_qualifier(const std::string& qualifier, const std::string& what,
                         std::string_view which) {
        for (const setting& other : settings()) {
            if (other.number != row_.number || other.qualifier != qualifier) continue;
            found_.alternatives.push_back(other.name() + " (" + what + std::string(which) + ")");
        }
    }

    bool has_e() const {
        return typed_.base.find('e') != std::string::npos &&
               row_.full_symbol.find('e') != std::string_view::npos;
    }

    // Another setting in the same axes, with the other of the two letters.
    void take_e() {
        found_.assumed.push_back("e read as in " + std::string(row_.symbol));
        for (const setting& other : settings()) {
            if (other.number == row_.number && other.full_symbol == row_.full_symbol &&
                other.choice == row_.choice && other.symbol != row_.symbol) {
                found_.alternatives.push_back(other.name() + " (the other letter for e)");
            }
        }
    }

    const symbol_parts& typed_;
    named_group& found_;
    const setting& row_;
};

}  // namespace

void add_assumptions(const symbol_parts& typed, named_group& found) {
    note_taker(typed, found).take();
}

}  // namespace lomar
