#pragma once

#include <string_view>

namespace lomar {

// The data files of data/, compiled into the program.
extern const std::string_view catalogue_data;        ///< lomar5.txt
extern const std::string_view rotations_data;        ///< sgrots3.txt
extern const std::string_view group_facts_data;      ///< group_facts.tsv
extern const std::string_view wyckoff_data;          ///< wyckoff.tsv
extern const std::string_view magnetic_names_data;   ///< magnetic_names.txt
extern const std::string_view magnetic_groups_data;  ///< shubnikovgroups.txt
extern const std::string_view magnetic_uni_data;     ///< magnetic_uni.tsv

}  // namespace lomar
