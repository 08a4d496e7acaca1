#pragma once

#include <map>
#include <utility>

#include "support/operators.h"

/// A row of the table of magnetic groups, with all its operators: those of a row of settings, with
/// signs or a primed translation.
struct magnetic_reference {
    std::string bns_number;
    std::string og_number;
    std::string bns_symbol;  ///< the prime is '
    std::string og_symbol;
    int type;
    int family;
    int parent;
    char lattice;
    std::set<std::pair<op_array, int>> ops;  ///< each with its sign
};

/// Where an operator goes under a translation in 1/360.
inline op_array moved_by(op_array op, const std::array<int, 3>& vector) {
    for (unsigned i = 0; i < 3; ++i) op[4 * i + 3] = (op[4 * i + 3] + vector[i]) % 360;
    return op;
}

/// `plain` are all operators of the row without signs, first those without centring copies.
inline std::set<std::pair<op_array, int>> signed_ops(int type, const std::string& time_reversal,
                                                     const std::vector<op_array>& plain) {
    std::set<std::pair<op_array, int>> ops;
    const op_array shift = type == 4 ? op_of(time_reversal) : op_array{};
    for (std::size_t i = 0; i < plain.size(); ++i) {
        // The centring copies repeat the signs.
        const bool primed = type == 3 && time_reversal[i % time_reversal.size()] == '-';
        ops.emplace(plain[i], primed ? -1 : 1);
        if (type == 2) ops.emplace(plain[i], -1);
        if (type == 4) ops.emplace(moved_by(plain[i], {shift[3], shift[7], shift[11]}), -1);
    }
    return ops;
}

inline std::vector<magnetic_reference> read_magnetic_references() {
    const std::vector<setting> settings = read_settings();
    std::vector<magnetic_reference> groups;
    std::ifstream file(TEST_DATA_DIR "/magnetic_groups.tsv");
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        std::vector<std::string> f = split(line, '\t');
        f.resize(10);
        std::vector<op_array> plain;
        for (const std::string& op : split(settings.at(std::stoul(f[8]) - 1).operators, ';')) {
            plain.push_back(op_of(op));
        }
        const int type = std::stoi(f[4]);
        groups.push_back({f[0], f[1], f[2], f[3], type, std::stoi(f[5]), std::stoi(f[6]), f[7][0],
                          signed_ops(type, f[9], plain)});
    }
    return groups;
}
