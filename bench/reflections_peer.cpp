// What bench/explorer.sh compares `lomar reflections` with: the unique present reflections of
// F m -3 m with their d, by the header-only library of another program, which writes no list.

#include <cstdio>
#include <gemmi/reciproc.hpp>

int main() {
    const gemmi::UnitCell cell(10, 10, 10, 90, 90, 90);
    const gemmi::SpaceGroup* group = gemmi::find_spacegroup_by_name("F m -3 m");
    const auto reflections = gemmi::make_miller_vector(cell, group, 0.3);
    double sum = 0;
    for (const gemmi::Miller& hkl : reflections) sum += cell.calculate_d(hkl);
    std::printf("%zu reflections, the sum of their d is %g\n", reflections.size(), sum);
}
