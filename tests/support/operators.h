#pragma once

#include <array>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "symmetry/xyz_op_3.h"

// Operators as plain arrays, read by code of their own, to hold against those of the program.

/// The rows of R, each followed by its number of t, which is 0 to 359.
using op_array = std::array<int, 12>;

inline op_array array_of(const xyz_op_3& op) {
    op_array array{};
    for (unsigned i = 0; i < 12; ++i) array[i] = op.rows[i / 4][i % 4];
    return array;
}

/// Reads `-x,y+1/2,-z` or `h-k, k, 0`.
inline op_array op_of(std::string_view text) {
    op_array op{};
    unsigned row = 0;
    int sign = 1;
    std::istringstream in{std::string(text)};
    for (char c = 0; in >> c;) {
        const std::size_t letter = std::string_view("xyzhkl").find(c);
        if (letter != std::string_view::npos) op[4 * row + letter % 3] += sign;
        if (c >= '1' && c <= '9') {
            int numerator = 0;
            int denominator = 0;
            if (!(in.unget() >> numerator >> c >> denominator)) throw std::invalid_argument("op");
            op[4 * row + 3] = ((sign * 360 * numerator / denominator) % 360 + 360) % 360;
        }
        sign = c == '-' ? -1 : 1;
        if (c == ',') ++row;
    }
    return op;
}

inline xyz_op_3 xyz_op_of(const op_array& array) {
    xyz_op_3 op;
    for (unsigned i = 0; i < 12; ++i) op.rows[i / 4][i % 4] = array[i];
    return op;
}
inline xyz_op_3 xyz_op_of(std::string_view text) { return xyz_op_of(op_of(text)); }

inline std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    std::istringstream in{std::string(text)};
    for (std::string part; std::getline(in, part, separator);) parts.push_back(part);
    return parts;
}

/// The operator that does first b, then a.
inline op_array product(const op_array& a, const op_array& b) {
    op_array result{};
    for (unsigned i = 0; i < 12; ++i) {
        int value = i % 4 == 3 ? a[i] : 0;
        for (unsigned k = 0; k < 3; ++k) value += a[i / 4 * 4 + k] * b[4 * k + i % 4];
        result[i] = i % 4 == 3 ? (value % 360 + 360) % 360 : value;
    }
    return result;
}

/// Where an operator sends a point given in twelfths of the cell edges: in 1/360, within the cell.
inline std::array<int, 3> image_of_twelfths(const op_array& op, const std::array<int, 3>& p) {
    std::array<int, 3> image{};
    for (unsigned i = 0; i < 3; ++i) {
        const int sum = op[4 * i] * p[0] + op[4 * i + 1] * p[1] + op[4 * i + 2] * p[2];
        image[i] = ((30 * sum + op[4 * i + 3]) % 360 + 360) % 360;
    }
    return image;
}

/// The phase with which an operator lets a point scatter, in turns: h (R x + t).
inline double turns_of(const op_array& op, const double* x, const int* hkl) {
    double turns = 0.0;
    for (unsigned i = 0; i < 3; ++i) {
        const int* const row = &op[4 * i];
        turns += hkl[i] * (row[0] * x[0] + row[1] * x[1] + row[2] * x[2] + row[3] / 360.0);
    }
    return turns;
}

/// The operators of a text such as `x,y,z;-x,-y,-z`, in this order.
inline xyz_list_3 xyz_list_of(std::string_view text) {
    xyz_list_3 ops;
    for (const std::string& op : split(text, ';')) ops.add(xyz_op_of(op));
    return ops;
}

inline std::vector<op_array> arrays_of(const xyz_list_3& ops) {
    std::vector<op_array> arrays;
    for (const xyz_op_3& op : ops) arrays.push_back(array_of(op));
    return arrays;
}

/// A row of the table of settings: all operators of a group, centring included.
struct setting {
    int number;
    std::string symbol;
    std::string choice;
    char centring;
    std::string point_group;
    std::string operators;
    std::set<op_array> group;
};

inline std::vector<setting> read_settings() {
    std::vector<setting> settings;
    std::ifstream file(TEST_DATA_DIR "/settings.tsv");
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        const std::vector<std::string> f = split(line, '\t');
        setting row{std::stoi(f[0]), f[1], f[2], f[5][0], f[6], f[9], {}};
        for (const std::string& op : split(f[9], ';')) row.group.insert(op_of(op));
        settings.push_back(row);
    }
    return settings;
}

/// Runs a check for each setting; a failure names it.
template <typename Check>
void for_each_setting(Check check) {
    for (const setting& row : read_settings()) {
        SCOPED_TRACE(row.symbol + ' ' + row.choice);
        check(row);
    }
}
