// Identification tried on random cases, and the figures of how many are right:
//
//     identify_cases [ROUNDS [SEED]]
//
// Each round takes each setting and each magnetic group once for every disguise (another basis, a
// primitive cell, a larger cell, generators alone) in right-handed and in left-handed axes, with a
// random origin, shuffled, with lattice translations added, written as one kind of input after the
// other and read back. A case is right if the number is, that of the enantiomorph in left-handed
// axes, and if a right-handed change takes the operators onto those of the setting found.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <set>
#include <string>

#include "explorer/support/random_groups.h"
#include "formats/identify_report.h"

namespace {

using namespace lomar;

struct figures {
    long cases = 0;
    long right = 0;
    double seconds = 0;
    double longest = 0;
};

const std::pair<disguise, const char*> disguises[] = {{disguise::same_cell, "other basis"},
                                                      {disguise::primitive, "primitive cell"},
                                                      {disguise::super_cell, "larger cell"},
                                                      {disguise::generators, "generators"}};

// The text before, around and after the operators of a kind of input.
struct input_form {
    const char* kind;
    const char* start;
    const char* before;
    const char* after;
    const char* end;
    bool magnetic;  // whether it can hold time reversal
};

const input_form forms[] = {
    {"xyz", "", "", "\n", "", true},
    {"cif", "data_x\nloop_\n_space_group_symop_operation_xyz\n", "'", "'\n", "", true},
    {"shelx", "TITL x\nLATT -1\n", "SYMM ", "\n", "END\n", false},
    {"sg", "xyzs {\n", "\t", " \n", "}\n", true},
    {"generators", "symmetry {\n", "", ";\n", "}\n", false},
    {"json", "{\"operators\": [", "\"", "\",\n", "\"x,y,z\"]}", true},
};

std::string as_input(const input_form& form, const std::vector<given_operator>& operators,
                     bool magnetic) {
    std::string text = form.start;
    for (const given_operator& op : operators) {
        text += form.before + given_text(op) + (magnetic && op.time > 0 ? ",1" : "") + form.after;
    }
    return text + form.end;
}

// Whether the change, the last part of which was found, takes a group onto another.
bool goes_over(const std::vector<symop>& group, const basis_change& change,
               const basis_change& found, const std::vector<symop>& into) {
    const std::set<symop> wanted(into.begin(), into.end());
    const fraction cells(static_cast<std::int64_t>(group.size()),
                         static_cast<std::int64_t>(into.size()));
    const fraction volume = determinant(change.matrix) * determinant(found.matrix) * cells;
    if (determinant(found.matrix) < fraction(0)) return false;
    if (volume != fraction(1) && volume != fraction(-1)) return false;
    return std::all_of(group.begin(), group.end(), [&](const symop& op) {
        return wanted.contains(modulo_lattice(transformed(op, change * found)));
    });
}

class trial {
public:
    trial(long rounds, unsigned seed) : random_(seed), rounds_(rounds) {}

    int run() {
        for (long round = 0; round < rounds_; ++round) {
            for (const setting& row : settings()) try_setting(row);
            for (const magnetic_facts& row : magnetic_groups()) try_magnetic(row);
        }
        long wrong = 0;
        for (const auto& [name, one] : figures_) {
            std::printf("%-36s %8ld cases %8ld right   mean %6.2f ms   longest %6.1f ms\n",
                        name.c_str(), one.cases, one.right,
                        one.seconds / static_cast<double>(one.cases) * 1e3, one.longest * 1e3);
            wrong += one.cases - one.right;
        }
        return wrong == 0 ? 0 : 1;
    }

private:
    // The kinds that can hold the operators, in turn.
    const input_form& next_form(bool magnetic) {
        for (;;) {
            const input_form& form = forms[turn_++ % std::size(forms)];
            if (form.magnetic || !magnetic) return form;
        }
    }

    template <typename Check>
    void try_case(const std::string& what, bool magnetic, const std::vector<given_operator>& given,
                  std::string_view name, const Check& check) {
        const input_form& form = next_form(magnetic);
        const std::string text = as_input(form, given, magnetic);
        const auto start = std::chrono::steady_clock::now();
        bool right = false;
        std::string reason = "another answer";
        try {
            const operator_input input = read_operators(text);
            const identify_report report = identify_block(input.blocks.at(0), input.from);
            right = check(report);
            if (!report.failure.empty()) reason = report.failure;
        } catch (const std::exception& failure) {
            reason = failure.what();
        }
        const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
        for (const std::string& group : {what, std::string("read as ") + form.kind}) {
            figures& one = figures_[group];
            ++one.cases;
            one.right += right ? 1 : 0;
            one.seconds += spent.count();
            one.longest = std::max(one.longest, spent.count());
        }
        if (right) return;
        std::printf("%s, %s: %s\n%s\n", std::string(name).c_str(), what.c_str(), reason.c_str(),
                    text.c_str());
    }

    // Does something with each disguise in right-handed, then in left-handed axes.
    template <typename Action>
    static void with_disguises(const std::string& what, const Action& action) {
        for (const auto& [kind, name] : disguises) {
            action(what + ", " + name, kind, hand::right);
            action(what + ", " + name + ", left", kind, hand::left);
        }
    }

    void try_setting(const setting& row) {
        const space_group group = group_of(row);
        with_disguises("space group", [&](const std::string& what, disguise kind, hand axes) {
            const basis_change change = random_.change(group.centring, kind, axes);
            const auto given = random_.operators(group.operators, change, kind);
            const bool turned = axes == hand::left && row.enantiomorph != 0;
            const int number = turned ? row.enantiomorph : row.number;
            const auto check = [&](const identify_report& report) {
                if (!report.space || report.space->row->number != number) return false;
                return goes_over(group.operators, change, report.space->change,
                                 group_of(*report.space->row).operators);
            };
            try_case(what, false, given, row.name(), check);
        });
    }

    void try_magnetic(const magnetic_facts& row) {
        const magnetic_group group = group_of(row);
        with_disguises("magnetic group", [&](const std::string& what, disguise kind, hand axes) {
            const basis_change change = random_.change(group.centring, kind, axes);
            const auto given = random_.operators(group.operators, change, kind);
            // No two rows are one group, so that the operators decide in left-handed axes.
            const auto check = [&](const identify_report& report) {
                if (!report.magnetic) return false;
                if (axes == hand::right && report.magnetic->row != &row) return false;
                return goes_over(group.operators, change, report.magnetic->change,
                                 group_of(*report.magnetic->row).operators);
            };
            try_case(what, true, given, row.bns_number, check);
        });
    }

    random_groups random_;
    long rounds_;
    std::size_t turn_ = 0;
    std::map<std::string, figures> figures_;
};

}  // namespace

int main(int argc, char** argv) {
    const long rounds = argc > 1 ? std::atol(argv[1]) : 1;
    const unsigned seed = argc > 2 ? static_cast<unsigned>(std::atol(argv[2])) : 1;
    return trial(rounds, seed).run();
}
