#include "analysis/symmetry_element.h"

#include <cmath>
#include <gtest/gtest.h>
#include <stdexcept>

#include "explorer/analysis/table_file.h"
#include "group/space_group.h"

namespace {

using namespace lomar;

using real_matrix = std::array<std::array<double, 3>, 3>;

TEST(SymmetryElement, PublishedExamples) {
    const auto rows = rows_of_table("elements_examples.tsv", 7);
    EXPECT_EQ(rows.size(), 76u);
    for (const auto& row : rows) {
        SCOPED_TRACE(row[0] + ": " + row[1]);
        const space_group group = group_of(*find_setting(row[0]));
        bool met = false;
        for (const symop& op : group.operators) {
            if (xyz_text(op) != row[1]) continue;
            met = true;
            const symmetry_element element = element_of(op);
            std::ostringstream axis;
            axis << element.axis[0] << ' ' << element.axis[1] << ' ' << element.axis[2];
            EXPECT_EQ(kind_text(element.kind), row[2]);
            EXPECT_EQ(element.sense, row[3] == "+" ? 1 : row[3] == "-" ? -1 : 0);
            EXPECT_EQ(axis.str(), row[4].empty() ? "0 0 0" : row[4]);
            EXPECT_EQ(text(element.intrinsic), row[5]);
            EXPECT_EQ(location_text(element), row[6]);
        }
        EXPECT_TRUE(met);
    }
}

// A metric that the rotations leave as it is.
real_matrix invariant_metric(const std::vector<symop>& operators) {
    real_matrix metric{};
    for (const symop& op : operators) {
        const int_matrix product = transposed(op.rot) * op.rot;
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t j = 0; j < 3; ++j) metric[i][j] += product[i][j];
        }
    }
    return metric;
}

double product(const real_matrix& metric, const int_vector& a, const int_vector& b) {
    double result = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) result += metric[i][j] * a[i] * b[j];
    }
    return result;
}

// The rotation part that kind, sense and axis tell of, in axes of this metric: its columns are the
// images of the base vectors.
int_matrix rebuilt_rotation(const symmetry_element& element, const real_matrix& g) {
    const int order = std::abs(element.kind);
    const double angle = 2 * std::acos(-1.0) / order * (element.sense < 0 ? -1 : 1);
    const int_vector& u = element.axis;
    const double length = order == 1 ? 1 : std::sqrt(product(g, u, u));
    int_matrix result{};
    for (std::size_t column = 0; column < 3; ++column) {
        int_vector v{};
        v[column] = 1;
        // u x v in reciprocal axes, up to the volume; its direct components are cofactors of g.
        const int_vector cross = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2],
                                  u[0] * v[1] - u[1] * v[0]};
        double det = 0;
        real_matrix cofactor{};
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t j = 0; j < 3; ++j) {
                cofactor[i][j] = g[(i + 1) % 3][(j + 1) % 3] * g[(i + 2) % 3][(j + 2) % 3] -
                                 g[(i + 1) % 3][(j + 2) % 3] * g[(i + 2) % 3][(j + 1) % 3];
            }
            det += g[0][i] * cofactor[0][i];
        }
        const double along = product(g, u, v) / (length * length) * (1 - std::cos(angle));
        for (std::size_t i = 0; i < 3; ++i) {
            double turned = 0;
            for (std::size_t j = 0; j < 3; ++j) turned += cofactor[i][j] * cross[j];
            turned *= std::sin(angle) / length / std::sqrt(det);
            const double image = v[i] * std::cos(angle) + along * u[i] + turned;
            const auto whole = static_cast<int>(std::lround(image));
            EXPECT_NEAR(image, whole, 1e-6);
            result[i][column] = element.kind < 0 ? -whole : whole;
        }
    }
    return result;
}

fraction_vector moved(fraction_vector point, const int_vector& direction) {
    for (std::size_t i = 0; i < 3; ++i) point[i] += fraction(direction[i], 7);
    return point;
}

void expect_rebuilt(const symop& op, const real_matrix& metric) {
    const symmetry_element element = element_of(op);
    const int kind = element.kind;
    symop rebuilt;
    rebuilt.rot = rebuilt_rotation(element, metric);
    rebuilt.trans = element.intrinsic + element.point - rebuilt.rot * element.point;
    EXPECT_EQ(rebuilt, op) << xyz_text(op);

    const bool turns = kind < 0 && kind != -2;
    EXPECT_EQ(element.directions.size(), kind == 1 || turns ? 0u : kind == -2 ? 2u : 1u);
    if (turns) {
        EXPECT_EQ(element.intrinsic, fraction_vector());
    }
    const symop rest = {op.rot, op.trans - element.intrinsic};
    for (const int_vector& direction : element.directions) {
        const fraction_vector on_it = moved(element.point, direction);
        EXPECT_EQ(rest * on_it, on_it) << xyz_text(op);
    }
}

TEST(SymmetryElement, FieldsMakeTheOperatorInEverySetting) {
    for (const setting& row : settings()) {
        SCOPED_TRACE(row.name());
        const space_group group = group_of(row);
        const real_matrix metric = invariant_metric(group.operators);
        for (const symop& op : group.operators) expect_rebuilt(op, metric);
    }
}

TEST(SymmetryElement, FieldsMakeTheOperatorInOddAxes) {
    for (const char* basis : {"a+2b,b-3c,c", "2a+b,a+b,c-7b", "b,c-5a,a"}) {
        const basis_change change = {parse_basis(basis), parse_point("1/5 2/7 0")};
        for (const char* name : {"P 6/m c c", "P a -3", "P n -3 m:2", "P 42/n c m:1"}) {
            SCOPED_TRACE(std::string(name) + " in " + basis);
            std::vector<symop> operators;
            for (const symop& op : group_of(*find_setting(name)).operators) {
                operators.push_back(transformed(op, change));
            }
            const real_matrix metric = invariant_metric(operators);
            for (const symop& op : operators) expect_rebuilt(op, metric);
        }
    }
}

TEST(SymmetryElement, SeitzSymbols) {
    const struct {
        int_matrix rot;
        const char* shift;
        int time;
        const char* seitz;
    } cases[] = {
        {unit_matrix, "0 0 0", 1, "{ 1 | 0 0 0 }"},
        {unit_matrix, "1/2 0 0", -1, "{ 1' | 1/2 0 0 }"},
        {negated(unit_matrix), "0 0 0", 1, "{ -1 | 0 0 0 }"},
        {{{{-1, 0, 0}, {0, 1, 0}, {0, 0, -1}}}, "0 1/2 1/2", 1, "{ 2_010 | 0 1/2 1/2 }"},
        {{{{0, -1, 0}, {0, 0, 1}, {-1, 0, 0}}}, "0 1/2 1/2", 1, "{ 3-_1-1-1 | 0 1/2 1/2 }"},
        {{{{0, 1, 0}, {-1, 0, 0}, {0, 0, -1}}}, "0 0 0", -1, "{ -4'+_001 | 0 0 0 }"},
        {{{{1, 0, 0}, {0, -1, 0}, {0, 0, 1}}}, "-1/2 0 0", 1, "{ m_010 | -1/2 0 0 }"},
        {{{{-1, 22, 0}, {0, 1, 0}, {0, 0, -1}}}, "0 0 0", 1, "{ 2_11,1,0 | 0 0 0 }"},
    };
    for (const auto& [rot, shift, time, seitz] : cases) {
        EXPECT_EQ(seitz_text({rot, parse_point(shift), time}), seitz);
    }
}

TEST(SymmetryElement, RefusesWhatNoCrystalHas) {
    const int_matrix rotations[] = {
        {{{1, 1, 0}, {0, 1, 0}, {0, 0, 1}}},    // a shear with the trace of the identity
        {{{-1, 1, 0}, {0, -1, 0}, {0, 0, 1}}},  // the same with that of a twofold axis
        {{{2, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
        {{{0, 0, 0}, {0, 0, 0}, {0, 0, 0}}},
    };
    for (const int_matrix& rot : rotations) {
        EXPECT_THROW(element_of({rot, {}}), std::domain_error);
    }
}

}  // namespace
