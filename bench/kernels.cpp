// Structure factors by the kernels against the direct sum over operators, for 10,000 reflections
// and 20 atoms; and single kernels, for what a column of them costs.

#include <benchmark/benchmark.h>
#include <cmath>

#include "library/groups/space_group_3.h"
#include "library/magnetic/sum_into_mag_3.h"
#include "library/scattering/phase_kernels.h"
#include "library/scattering/structure_factors_3.h"
#include "textin/data_dir.h"

namespace {

constexpr int n_reflections = 10000;
constexpr int n_atoms = 20;
constexpr double two_pi = 6.28318530717958;

struct sample {
    explicit sample(const char* symbol) {
        data_dir() = DATA_DIR "/";
        space_group_3 group = space_group_of(symbol);
        ops.take(group.ops);
        table.form_factors.set_n(1);
        for (int h = 0; hkls.n < n_reflections; ++h) {
            for (int k = -15; k <= 15; ++k) {
                for (int l = -15; l <= 15 && hkls.n < n_reflections; ++l) {
                    hkls.add({{h, k, l}});
                    table.s_squared.add(1e-4 * (h * h + k * k + l * l));
                    table.form_factors[0].add(10.0 - 0.001 * (h + k + l));
                }
            }
        }
        for (int i = 0; i < n_atoms; ++i) {
            atoms.add({{0.017 * i, 0.3 - 0.011 * i, 0.041 * i}, 1.0, 0.5, 0});
        }
    }

    xyz_list_3 ops;
    list_0_3<triple_3> hkls;
    list_0_3<sf_atom_3> atoms;
    scattering_table_3 table;
};

void by_kernels(benchmark::State& state, const char* symbol) {
    const sample s(symbol);
    structure_factors_3 sums;
    sums.set_up(s.ops, s.hkls);
    list_0_3<structure_factor_3> result;
    for (auto _ : state) {
        sums.sum(s.atoms, s.table, result);
        benchmark::DoNotOptimize(result.p);
    }
    state.counters["operators"] = s.ops.n;
}

void with_set_up(benchmark::State& state, const char* symbol) {
    const sample s(symbol);
    list_0_3<structure_factor_3> result;
    for (auto _ : state) {
        structure_factors_3 sums;
        sums.set_up(s.ops, s.hkls);
        sums.sum(s.atoms, s.table, result);
        benchmark::DoNotOptimize(result.p);
    }
}

// One sine and one cosine for each operator.
void direct(benchmark::State& state, const char* symbol) {
    const sample s(symbol);
    list_0_3<structure_factor_3> result;
    list_0_3<double> factors;
    for (auto _ : state) {
        result.new_n_zero(s.hkls.n);
        for (const sf_atom_3& atom : s.atoms) {
            s.table.factors_of(atom.occupancy, atom.b_iso, atom.form_factor, factors);
            const double* const x = atom.position;
            for (const xyz_op_3& op : s.ops) {
                double image[3];
                for (int i = 0; i < 3; ++i) {
                    image[i] = two_pi * (op.rot(i, 0) * x[0] + op.rot(i, 1) * x[1] +
                                         op.rot(i, 2) * x[2] + op.trans(i) / 360.0);
                }
                for (int r = 0; r < result.n; ++r) {
                    const triple_3& hkl = s.hkls[r];
                    const double angle = hkl[0] * image[0] + hkl[1] * image[1] + hkl[2] * image[2];
                    result[r].a += factors[r] * std::cos(angle);
                    result[r].b += factors[r] * std::sin(angle);
                }
            }
        }
        benchmark::DoNotOptimize(result.p);
    }
    state.counters["operators"] = s.ops.n;
}

// What the folding alone gains: one sine and one cosine for each group of operators.
void folded(benchmark::State& state, const char* symbol) {
    const sample s(symbol);
    sg_phase_sum_3 sum;
    sum.set_up(s.ops);
    list_0_3<structure_factor_3> result;
    list_0_3<double> factors;
    list_0_3<sum_list_3> sums;
    sums.set_n(s.hkls.n);
    for (int r = 0; r < s.hkls.n; ++r) {
        sum.translation_sums(s.hkls[r][0], s.hkls[r][1], s.hkls[r][2], sums[r]);
    }
    phase_list_3 phases;
    for (auto _ : state) {
        result.new_n_zero(s.hkls.n);
        for (const sf_atom_3& atom : s.atoms) {
            s.table.factors_of(atom.occupancy, atom.b_iso, atom.form_factor, factors);
            sum.position_phases(atom.position, phases);
            for (int r = 0; r < result.n; ++r) {
                double a = 0.0;
                double b = 0.0;
                const triple_3& hkl = s.hkls[r];
                sum.add_position_terms(b, a, phases, hkl[0], hkl[1], hkl[2], sums[r]);
                result[r].a += factors[r] * a;
                result[r].b += factors[r] * b;
            }
        }
        benchmark::DoNotOptimize(result.p);
    }
    state.counters["groups"] = sum.groups.n;
}

#define FOR_GROUPS(f)                                                     \
    BENCHMARK_CAPTURE(f, P21c, "P 21/c")->Unit(benchmark::kMillisecond);  \
    BENCHMARK_CAPTURE(f, Fddd, "F d d d")->Unit(benchmark::kMillisecond); \
    BENCHMARK_CAPTURE(f, Ia_3d, "I a -3 d")->Unit(benchmark::kMillisecond)

FOR_GROUPS(by_kernels);
FOR_GROUPS(with_set_up);
FOR_GROUPS(folded);
FOR_GROUPS(direct);

// 1000 columns of the kernel of a case that adds to `out`, or rotates `w`.
struct columns {
    static constexpr int n = 1000;
    explicit columns(bool per_column) {
        w.set_n(2 * n);
        w.fill(0.5);
        out.set_n(6 * n);
        out.fill(0.0);
        index.set_n(per_column ? n : 1);
        for (int r = 0; r < index.n; ++r) index[r] = r % 8;
        records.set_n(8);
        for (int i = 0; i < records.n; ++i) records[i] = {0.6, 0.8, 0.6, 0.8};
    }
    list_0_3<double> w;
    list_0_3<double> out;
    int_list_3 index;
    sum_list_3 records;
};

void kernel_adds(benchmark::State& state) {
    const auto number = static_cast<int>(state.range(0));
    columns c((number - 1) / 3 % 2 == 1);
    const out_kernel_3 kernel = phase_kernels_3(number).phase_out.next;
    for (auto _ : state) {
        kernel({c.out.p, 2}, {c.w.p, columns::n}, c.index, c.records, 0, columns::n);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * columns::n);
}
BENCHMARK(kernel_adds)->DenseRange(1, 12);

void kernel_rotates(benchmark::State& state) {
    const auto number = static_cast<int>(state.range(0));
    columns c((number - 1) / 3 % 2 == 1);
    const rotate_kernel_3 kernel = phase_kernels_3(number).rotate;
    for (auto _ : state) {
        kernel({c.w.p, columns::n}, c.index, c.records, 0, columns::n);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * columns::n);
}
BENCHMARK(kernel_rotates)->Arg(1)->Arg(4)->Arg(7)->Arg(10);

void magnetic_sum(benchmark::State& state) {
    columns c(false);
    const moment_3 moment = {{1, 2, 3, 4, 5, 6}};
    for (auto _ : state) {
        mask_entry(63)->sum(0, {c.w.p, columns::n}, {c.out.p, 6, columns::n}, moment);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * columns::n);
}
BENCHMARK(magnetic_sum);

// What the processor can do with pairs in registers: multiplications and additions that don't wait
// for each other.
void arithmetic_peak(benchmark::State& state) {
    using pair = double __attribute__((vector_size(16)));
    constexpr int n = 1000;
    pair factor = {1.0, 1.0};
    pair term = {0.1, 0.2};
    benchmark::DoNotOptimize(factor);
    benchmark::DoNotOptimize(term);
    pair p0, p1, p2, p3, p4, p5, s0, s1, s2, s3, s4, s5;
    for (pair* p : {&p0, &p1, &p2, &p3, &p4, &p5, &s0, &s1, &s2, &s3, &s4, &s5}) {
        *p = pair{1.0, 1.0};
        benchmark::DoNotOptimize(*p);
    }
    for (auto _ : state) {
        for (int i = 0; i < n; ++i) {
            p0 *= factor, s0 += term, p1 *= factor, s1 += term;
            p2 *= factor, s2 += term, p3 *= factor, s3 += term;
            p4 *= factor, s4 += term, p5 *= factor, s5 += term;
        }
    }
    pair sum = p0 + p1 + p2 + p3 + p4 + p5 + s0 + s1 + s2 + s3 + s4 + s5;
    benchmark::DoNotOptimize(sum);
    state.SetItemsProcessed(state.iterations() * n * 24);
}
BENCHMARK(arithmetic_peak);

}  // namespace
