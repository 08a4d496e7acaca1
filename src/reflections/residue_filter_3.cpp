#include "reflections/residue_filter_3.h"

constexpr std::array<residue_filter_3::words, 1 << residue_filter_3::period>
    residue_filter_3::words_of_sets_ = [] {
        std::array<words, 1 << period> table{};
        for (unsigned set = 0; set < table.size(); ++set) {
            for (unsigned start = 0; start < period; ++start) {
                for (unsigned j = 0; j < 64; ++j) {
                    const std::uint64_t bit = (set >> ((start + j) % period)) & 1;
                    table[set][start] |= bit << j;
                }
            }
        }
        return table;
    }();

residue_filter_3::residue_filter_3(const lattice_type_3& lattice) {
    for (int h = 0; h < period; ++h) {
        for (int k = 0; k < period; ++k) {
            unsigned set = 0;
            for (int l = 0; l < period && lattice.hk_allowed(h, k); ++l) {
                if (lattice.hkl_allowed(h, k, l)) set |= 1u << l;
            }
            sets_[static_cast<std::size_t>(h) * period + static_cast<std::size_t>(k)] =
                static_cast<std::uint8_t>(set);
        }
    }
}
