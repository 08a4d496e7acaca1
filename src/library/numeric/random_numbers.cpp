#include "library/numeric/random_numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <ctime>

#include "foundation/text.h"

namespace {

constexpr int table_size = 32;

struct shuffle_state {
    int table[table_size];
    int last;  ///< the number that was given last; 0 before the first
};

shuffle_state shuffle;

// 16807 * x modulo 2147483647.
int next_state(int x) {
    constexpr double reciprocal = 7.82637959506312e-6;  // of 127773
    const auto k = static_cast<unsigned>(static_cast<int>(std::floor(x * reciprocal)));
    constexpr unsigned modulus = 2147483647;
    const unsigned next = 16807 * static_cast<unsigned>(x) - k * modulus;
    return static_cast<int>(static_cast<int>(next) < 0 ? next + modulus : next);
}

void fill_table(int& seed) {
    constexpr int warm_up = 8;
    seed = std::max(static_cast<int>(-static_cast<unsigned>(seed)), 1);
    for (int j = table_size + warm_up - 1; j >= 0; --j) {
        seed = next_state(seed);
        if (j < table_size) shuffle.table[j] = seed;
    }
    shuffle.last = shuffle.table[0];
}

}  // namespace

double shuffle_random(int& seed) {
    constexpr double table_step = 1.4901160985680842e-8;  // 1/67108864.9375
    constexpr double scale = 4.656612875245797e-10;       // 1/2147483647
    constexpr double largest = 0.99999988;
    if (seed <= 0 || shuffle.last == 0) fill_table(seed);
    seed = next_state(seed);
    const int j = static_cast<int>(std::floor(shuffle.last * table_step));
    shuffle.last = shuffle.table[j];
    shuffle.table[j] = seed;
    return std::min(shuffle.last * scale, largest);
}

void seed_random(unsigned n) {
    std::srand(n);
    random_spare = no_spare;
}

int seed_random_by_time() {
    seed_random(static_cast<unsigned>(std::llabs(static_cast<long long>(std::time(nullptr)))));
    return std::rand();
}

namespace {

constexpr int largest_rand = 32767;
constexpr double unit_step = 3.051850947599719e-5;   // 1/32767
constexpr double fine_step = 9.313794206365304e-10;  // 1/32767^2

// The upper bits of rand().
int rand_15() {
    constexpr long long surplus = (RAND_MAX + 1LL) / (largest_rand + 1);
    return static_cast<int>(std::rand() / surplus);
}

// Two full numbers would add up to the end of the range, which is no member of it.
double scaled_pair(int first, int second, double step, double finer_step, double start,
                   double end) {
    const double value = std::min(first, largest_rand - 1) * step + second * finer_step + start;
    return std::min(value, std::nextafter(end, start));
}

}  // namespace

double unit_of_rand(int first) { return first * unit_step; }

double fine_of_rand(int first, int second) {
    return scaled_pair(first, second, unit_step, fine_step, 0.0, 1.0);
}

int int_of_rand(int low, int high, int first, int second) {
    const double width = static_cast<double>(high) - low;
    return static_cast<int>(low + std::llround(fine_of_rand(first, second) * width));
}

int byte_of_rand(int first) {
    constexpr double byte_step = 0.007782219916379284;  // 255/32767
    return round_nearest(first * byte_step);
}

double above_one_of_rand(int first, int second) {
    constexpr double step = 0.007751701406903287;         // 254/32767
    constexpr double finer_step = 2.3657037284167873e-7;  // 254/32767^2
    return scaled_pair(first, second, step, finer_step, 1.0, 255.0);
}

double random_unit() { return unit_of_rand(rand_15()); }

double random_fine() {
    const int first = rand_15();
    return fine_of_rand(first, rand_15());
}

int random_int(int low, int high) {
    const int first = rand_15();
    return int_of_rand(low, high, first, rand_15());
}

int random_byte() { return byte_of_rand(rand_15()); }

double random_above_one() {
    const int first = rand_15();
    return above_one_of_rand(first, rand_15());
}
