#include "analysis/conditions.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <numeric>
#include <tuple>

#include "analysis/condition_causes.h"
#include "analysis/hkl_class.h"

namespace lomar {

namespace {

std::int64_t order_of(const fraction_vector& phases) {
    return std::lcm(std::lcm(phases[0].den(), phases[1].den()), phases[2].den());
}

// A sum of the parameters of a class that must be a multiple of a modulus.
struct linear_form {
    int_vector factors{};
    int modulus = 1;

    int n_letters() const {
        return static_cast<int>(
            std::count_if(factors.begin(), factors.end(), [](int f) { return f != 0; }));
    }
    // Few letters, small factors, few minus signs, and those at the front; then the first letters.
    auto plainness() const {
        const int sum = std::abs(factors[0]) + std::abs(factors[1]) + std::abs(factors[2]);
        const auto n_minus =
            std::count_if(factors.begin(), factors.end(), [](int f) { return f < 0; });
        const int last = factors[2] != 0 ? factors[2] : factors[1] != 0 ? factors[1] : factors[0];
        return std::tuple(n_letters(), sum, n_minus, last < 0, -std::abs(factors[0]),
                          -std::abs(factors[1]));
    }
};

// The plainer one of the forms of phases and of their opposite, which demand the same.
linear_form form_of(const fraction_vector& phases) {
    const std::int64_t order = order_of(phases);
    linear_form plus, minus;
    plus.modulus = minus.modulus = static_cast<int>(order);
    for (std::size_t i = 0; i < 3; ++i) {
        const std::int64_t part = phases[i].num() * (order / phases[i].den());
        const std::int64_t rest = (order - part) % order;
        plus.factors[i] = static_cast<int>(2 * part > order ? part - order : part);
        minus.factors[i] = static_cast<int>(2 * rest > order ? rest - order : rest);
    }
    return minus.plainness() < plus.plainness() ? minus : plus;
}

std::string form_text(const linear_form& form, const std::string& letters) {
    std::string result;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        const int factor = form.factors[i];
        if (factor == 0) continue;
        if (factor > 0 && !result.empty()) result += '+';
        if (factor == -1) result += '-';
        if (std::abs(factor) > 1) result += std::to_string(factor);
        result += letters[i];
    }
    return result + " = " + std::to_string(form.modulus) + "n";
}

// A sorted list of phases that form a group.
using phase_group = std::vector<fraction_vector>;

bool holds(const phase_group& group, const fraction_vector& phases) {
    return std::binary_search(group.begin(), group.end(), phases);
}

void extend(phase_group& group, const fraction_vector& phases) {
    if (holds(group, phases)) return;
    const std::vector<fraction_vector> multiples = multiples_of(phases);
    phase_group sums;
    for (const fraction_vector& member : group) {
        for (const fraction_vector& multiple : multiples) {
            sums.push_back(modulo_one(member + multiple));
        }
    }
    std::sort(sums.begin(), sums.end());
    sums.erase(std::unique(sums.begin(), sums.end()), sums.end());
    group = sums;
}

// The phases of all operators that fix a class, without those that only fix a part of it.
phase_group phases_on(const hkl_class& which, std::span<const symop> operators) {
    phase_group result;
    for (const symop& op : operators) {
        if (which.fixed_by(op.rot)) result.push_back(phases_of(op.trans, which));
    }
    std::sort(result.begin(), result.end());
    result.erase(std::unique(result.begin(), result.end()), result.end());
    return result;
}

// The members whose order is a power of the prime.
phase_group prime_part(const phase_group& group, std::int64_t prime) {
    phase_group result;
    for (const fraction_vector& phases : group) {
        std::int64_t order = order_of(phases);
        while (order % prime == 0) order /= prime;
        if (order == 1) result.push_back(phases);
    }
    return result;
}

// The greatest first.
std::vector<std::int64_t> primes_of(std::int64_t n) {
    std::vector<std::int64_t> primes;
    for (std::int64_t p = 2; n > 1; ++p) {
        if (n % p == 0) primes.push_back(p);
        while (n % p == 0) n /= p;
    }
    std::reverse(primes.begin(), primes.end());
    return primes;
}

// What the generated phases make together with all of smaller order, which plainer conditions will
// generate.
phase_group generated_with_weaker(phase_group generated, const phase_group& part, int order) {
    for (const fraction_vector& phases : part) {
        if (order_of(phases) < order && !holds(generated, phases)) extend(generated, phases);
    }
    return generated;
}

// The conditions that tables print for phases of a prime's powers: those that generate them all,
// strong ones first and plain ones among these; and of the modulus 2 also what follows from these,
// if it is as plain: h+k, h+l and k+l.
std::vector<fraction_vector> printed_phases(phase_group part) {
    const auto strength = [](const fraction_vector& phases) {
        return std::tuple(-order_of(phases), form_of(phases).plainness());
    };
    std::stable_sort(part.begin(), part.end(),
                     [&](const fraction_vector& a, const fraction_vector& b) {
                         return strength(a) < strength(b);
                     });
    std::vector<fraction_vector> result;
    phase_group generated = {{}};
    int n_letters_of_twos = 0;
    for (const fraction_vector& phases : part) {
        const linear_form form = form_of(phases);
        if (form.modulus == 1) continue;
        const bool is_new = !holds(generated_with_weaker(generated, part, form.modulus), phases);
        if (!is_new && form.n_letters() != n_letters_of_twos) continue;
        if (!is_new && form.modulus != 2) continue;
        result.push_back(phases);
        if (!is_new) continue;
        extend(generated, phases);
        if (form.modulus == 2) n_letters_of_twos = form.n_letters();
    }
    return result;
}

struct condition_part {
    linear_form form;
    std::vector<std::string> causes;
};

// Parts of several primes with one sum become one: l = 2n and l = 3n make l = 6n.
void add_part(std::vector<condition_part>& parts, const condition_part& part) {
    for (condition_part& other : parts) {
        if (other.form.factors != part.form.factors) continue;
        other.form.modulus *= part.form.modulus;
        for (const std::string& cause : part.causes) {
            const auto& known = other.causes;
            if (std::find(known.begin(), known.end(), cause) == known.end()) {
                other.causes.push_back(cause);
            }
        }
        return;
    }
    parts.push_back(part);
}

std::vector<condition_part> parts_of(const hkl_class& which, const phase_group& phases,
                                     const condition_causes& causes) {
    std::int64_t exponent = 1;
    for (const fraction_vector& each : phases) exponent = std::lcm(exponent, order_of(each));
    std::vector<condition_part> parts;
    for (const std::int64_t prime : primes_of(exponent)) {
        for (const fraction_vector& each : printed_phases(prime_part(phases, prime))) {
            add_part(parts, {form_of(each), causes.of(which, each)});
        }
    }
    return parts;
}

// The classes of the group's own operators that have conditions which no wider class implies.
void add_own_classes(std::vector<hkl_class>& classes, const space_group& group) {
    std::vector<hkl_class> of_rotation;
    for (const symop& op : group.representatives()) {
        of_rotation.push_back(reflections_fixed_by(op.rot));
    }
    std::vector<hkl_class> own_classes = of_rotation;
    std::stable_sort(own_classes.begin(), own_classes.end(),
                     [](const auto& a, const auto& b) { return a.n_parameters > b.n_parameters; });
    for (const hkl_class& own : own_classes) {
        const auto same = [&](const hkl_class& other) {
            return other.n_parameters == own.n_parameters && other.contains(own);
        };
        if (own.n_parameters == 0 || std::any_of(classes.begin(), classes.end(), same)) continue;
        phase_group implied = {{}};
        for (std::size_t i = 0; i < group.operators.size(); ++i) {
            const hkl_class& other = of_rotation[i % group.primitive_order()];
            const symop& op = group.operators[i];
            if (other.n_parameters > own.n_parameters && own.fixed_by(op.rot)) {
                extend(implied, phases_of(op.trans, own));
            }
        }
        if (implied.size() < phases_on(own, group.operators).size()) classes.push_back(own);
    }
}

}  // namespace

bool reflection_condition::broken_by(const int_vector& hkl) const {
    std::int64_t sum = 0;
    for (std::size_t i = 0; i < 3; ++i) sum += std::int64_t{linear[i]} * hkl[i];
    return sum % modulus != 0 && pattern * (parameters * hkl) == hkl;
}

std::vector<reflection_condition> conditions_of(const space_group& group) {
    std::vector<hkl_class> classes = conventional_classes(group);
    add_own_classes(classes, group);
    const condition_causes causes(group);
    const bool four_indices = has_hexagonal_axes(group);
    std::vector<reflection_condition> result;
    for (const hkl_class& which : classes) {
        const phase_group phases = phases_on(which, group.operators);
        for (const condition_part& part : parts_of(which, phases, causes)) {
            reflection_condition condition;
            condition.reflection_class = which.name(four_indices);
            condition.pattern = which.pattern;
            condition.parameters = which.parameters;
            condition.linear = transposed(which.parameters) * part.form.factors;
            condition.modulus = part.form.modulus;
            condition.text =
                condition.reflection_class + ": " + form_text(part.form, which.letters);
            condition.causes = part.causes;
            result.push_back(condition);
        }
    }
    return result;
}

}  // namespace lomar
