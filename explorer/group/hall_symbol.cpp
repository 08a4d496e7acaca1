#include "group/hall_symbol.h"

#include <algorithm>
#include <optional>

#include "group/coordinate_text.h"
#include "group/generated_group.h"
#include "group/library_adapter.h"
#include "group/symbol_text.h"

namespace lomar {

namespace {

constexpr std::size_t most_rotations = 4;

// One of the parts N of a symbol.
struct hall_rotation {
    int order = 1;
    bool improper = false;
    char axis = 0;  // x y z ' " *, or 0 for 1 and -1
    int screw = 0;
    fraction_vector shift;
};

// Matrices about z (table A1.4.2.4); those about x and y follow by exchanging the axes cyclically.
constexpr int_matrix matrix_2z = {{{-1, 0, 0}, {0, -1, 0}, {0, 0, 1}}};
constexpr int_matrix matrix_3z = {{{0, -1, 0}, {1, -1, 0}, {0, 0, 1}}};
constexpr int_matrix matrix_4z = {{{0, -1, 0}, {1, 0, 0}, {0, 0, 1}}};
constexpr int_matrix matrix_6z = {{{1, -1, 0}, {1, 0, 0}, {0, 0, 1}}};
// The 2 along a-b and along a+b.
constexpr int_matrix matrix_prime = {{{0, -1, 0}, {-1, 0, 0}, {0, 0, -1}}};
constexpr int_matrix matrix_double_prime = {{{0, 1, 0}, {1, 0, 0}, {0, 0, -1}}};
constexpr int_matrix matrix_diagonal = {{{0, 0, 1}, {1, 0, 0}, {0, 1, 0}}};

// The matrix that is to `axis` what `m` is to z.
int_matrix about_axis(const int_matrix& m, char axis) {
    const std::size_t turn = axis == 'x' ? 1 : axis == 'y' ? 2 : 0;
    int_matrix result;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) result[(i + turn) % 3][(j + turn) % 3] = m[i][j];
    }
    return result;
}

int_matrix matrix_of(const hall_rotation& rotation, char principal) {
    int_matrix result = unit_matrix;
    if (rotation.axis == '*') {
        result = matrix_diagonal;
    } else if (rotation.axis == '\'') {
        result = about_axis(matrix_prime, principal);
    } else if (rotation.axis == '"') {
        result = about_axis(matrix_double_prime, principal);
    } else if (rotation.order > 1) {
        const int_matrix& along_z = rotation.order == 2   ? matrix_2z
                                    : rotation.order == 3 ? matrix_3z
                                    : rotation.order == 4 ? matrix_4z
                                                          : matrix_6z;
        result = about_axis(along_z, rotation.axis);
    }
    return rotation.improper ? negated(result) : result;
}

fraction_vector shift_of(char letter) {
    const fraction half(1, 2);
    const fraction quarter(1, 4);
    switch (letter) {
        case 'a':
            return {half, 0, 0};
        case 'b':
            return {0, half, 0};
        case 'c':
            return {0, 0, half};
        case 'n':
            return {half, half, half};
        case 'u':
            return {quarter, 0, 0};
        case 'v':
            return {0, quarter, 0};
        case 'w':
            return {0, 0, quarter};
        default:
            return {quarter, quarter, quarter};  // d
    }
}

std::vector<fraction_vector> centring_of(char letter) {
    const fraction third(1, 3);
    const fraction rest(2, 3);
    switch (letter) {
        case 's':
            return {{}, {third, third, rest}, {rest, rest, third}};
        case 't':
            return {{}, {third, rest, third}, {rest, third, rest}};
        case 'h':
            return {{}, {rest, third, 0}, {third, rest, 0}};
        default:
            return centring_of_letter(letter);
    }
}

class hall_reader {
public:
    explicit hall_reader(std::string_view typed) : typed_(typed) {
        std::string blanks = plain_symbol(typed);
        std::replace(blanks.begin(), blanks.end(), '_', ' ');
        text_ = plain_symbol(blanks);
        // Places count in what the message shows.
        if (typed_.size() != text_.size()) typed_ = text_;
    }

    hall_group read() {
        const std::size_t bracket = std::min(text_.find('('), text_.size());
        end_ = bracket;
        read_lattice();
        while (skip_blanks() < end_) read_rotation();
        if (n_rotations_ == 0) refuse("a rotation must follow the lattice letter", at_);
        hall_group result;
        result.symbol = canonical();
        try {
            const std::optional<basis_change> change = read_change(bracket);
            operator_list group = generate(generators_, centring_, change);
            result.centring = std::move(group.centring);
            result.operators = std::move(group.operators);
        } catch (const std::domain_error& failure) {
            refuse(failure.what());
        } catch (const std::overflow_error&) {
            refuse("its numbers are too large");
        }
        return result;
    }

private:
    [[noreturn]] void refuse(const std::string& why) const {
        throw unknown_symbol(in_quotes(typed_) + " is no Hall symbol: " + why);
    }

    [[noreturn]] void refuse(const std::string& why, std::size_t place) const {
        refuse(why + " (at character " + std::to_string(place + 1) + ")");
    }

    std::size_t skip_blanks() {
        while (at_ < end_ && text_[at_] == ' ') ++at_;
        return at_;
    }

    bool take(char c) {
        if (at_ == end_ || text_[at_] != c) return false;
        ++at_;
        return true;
    }

    void read_lattice() {
        const bool centric = take('-');
        if (at_ == end_ ||
            std::string_view("pabcirstfh").find(text_[at_]) == std::string_view::npos) {
            refuse("it must begin with a lattice letter, one of PABCIRSTFH", at_);
        }
        centring_ = centring_of(text_[at_]);
        ++at_;
        if (centric) generators_.push_back({negated(unit_matrix), {}, 1});
        if (at_ < end_ && text_[at_] != ' ') refuse("a blank must follow the lattice letter", at_);
    }

    void read_rotation() {
        const std::size_t start = at_;
        if (++n_rotations_ > most_rotations) refuse("there are at most four rotations", start);
        hall_rotation rotation;
        rotation.improper = take('-');
        if (at_ == end_ || std::string_view("12346").find(text_[at_]) == std::string_view::npos) {
            refuse("a rotation is 1, 2, 3, 4 or 6", at_);
        }
        rotation.order = text_[at_++] - '0';
        std::string letters;
        while (at_ < end_ && text_[at_] != ' ') read_part(rotation, letters);
        if (rotation.axis == 0) rotation.axis = implied_axis(rotation, start);
        check_axis(rotation, start);
        add(rotation);
    }

    void read_part(hall_rotation& rotation, std::string& letters) {
        const char c = text_[at_];
        if (std::string_view("xyz'\"*").find(c) != std::string_view::npos) {
            if (rotation.axis != 0) refuse("a rotation has one axis", at_);
            rotation.axis = c;
        } else if (c >= '1' && c <= '5') {
            if (rotation.screw != 0 || c - '0' >= rotation.order) {
                refuse(std::string("no screw axis ") + static_cast<char>('0' + rotation.order) + c,
                       at_);
            }
            rotation.screw = c - '0';
        } else if (std::string_view("abcnuvwd").find(c) != std::string_view::npos) {
            if (letters.find(c) != std::string::npos) refuse("a translation twice", at_);
            letters += c;
            rotation.shift = rotation.shift + shift_of(c);
        } else {
            refuse("no axis, screw or translation is written so", at_);
        }
        ++at_;
    }

    char implied_axis(const hall_rotation& rotation, std::size_t start) const {
        if (rotation.order == 1) return 0;
        if (n_rotations_ == 1) return 'z';
        if (n_rotations_ == 2 && rotation.order == 2) {
            if (before_.order == 2 || before_.order == 4) return 'x';
            if (before_.order == 3 || before_.order == 6) return '\'';
        }
        if (n_rotations_ == 3 && rotation.order == 3) return '*';
        refuse("no axis is implied here; write it", start);
    }

    void check_axis(const hall_rotation& rotation, std::size_t start) const {
        const bool is_edge = rotation.axis >= 'x' && rotation.axis <= 'z';
        const int wanted = rotation.axis == '*' ? 3 : 2;
        if (rotation.order == 1) {
            if (rotation.axis != 0) refuse("1 has no axis", start);
        } else if (!is_edge && rotation.order != wanted) {
            refuse("this axis is for " + std::to_string(wanted) + " alone", start);
        } else if (!is_edge && rotation.screw != 0) {
            refuse("a screw axis is along an edge of the cell", start);
        }
    }

    void add(const hall_rotation& rotation) {
        symop op{matrix_of(rotation, principal_), rotation.shift, 1};
        if (rotation.screw != 0) {
            fraction& along = op.trans[static_cast<std::size_t>(rotation.axis - 'x')];
            along += fraction(rotation.screw, rotation.order);
        }
        generators_.push_back(modulo_lattice(op));
        before_ = rotation;
        if (rotation.axis >= 'x' && rotation.axis <= 'z') principal_ = rotation.axis;
    }

    // The change of basis as x' = V x: the new basis has the matrix V^-1.
    std::optional<basis_change> read_change(std::size_t bracket) {
        if (bracket == text_.size()) return std::nullopt;
        if (text_.back() != ')') refuse("a closing bracket is missing", text_.size());
        const std::string inner = text_.substr(bracket + 1, text_.size() - bracket - 2);
        try {
            if (inner.find_first_of("xyz") != std::string::npos) {
                const coordinate_text new_coordinates = parse_coordinates(inner);
                return inverse(basis_change{new_coordinates.matrix, new_coordinates.shift});
            }
            fraction_vector shift = parse_point(inner);
            for (fraction& part : shift) part /= 12;
            return inverse(basis_change{to_fractions(unit_matrix), shift});
        } catch (const std::invalid_argument& failure) {
            refuse(failure.what(), bracket + 1);
        } catch (const std::domain_error&) {
            refuse("the new axes lie in one plane", bracket + 1);
        }
    }

    // With a capital for the lattice.
    std::string canonical() const {
        std::string result = text_;
        const std::size_t letter = text_.starts_with('-') ? 1 : 0;
        if (letter < result.size() && result[letter] >= 'a' && result[letter] <= 'z') {
            result[letter] = static_cast<char>(result[letter] - 'a' + 'A');
        }
        return result;
    }

    std::string_view typed_;
    std::string text_;
    std::size_t at_ = 0;
    std::size_t end_ = 0;
    std::size_t n_rotations_ = 0;
    hall_rotation before_;
    char principal_ = 'z';
    std::vector<symop> generators_;
    std::vector<fraction_vector> centring_;
};

}  // namespace

hall_group decode_hall(std::string_view symbol) { return hall_reader(symbol).read(); }

}  // namespace lomar
