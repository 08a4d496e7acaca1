#pragma once

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

/// The rows of a table under tests/data, without its first line, each filled up to `n_columns`.
inline std::vector<std::vector<std::string>> rows_of_table(const std::string& name,
                                                           std::size_t n_columns) {
    std::ifstream file(TEST_DATA_DIR "/" + name);
    std::vector<std::vector<std::string>> rows;
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        std::istringstream in(line);
        std::vector<std::string> fields;
        for (std::string field; std::getline(in, field, '\t');) fields.push_back(field);
        fields.resize(n_columns);
        rows.push_back(fields);
    }
    return rows;
}
