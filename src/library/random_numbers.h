#pragma once

// Two sources of random numbers: a portable generator whose sequence is the same everywhere, and
// shapes of the standard library's rand(), whose sequence is the platform's. Of rand() 15 bits are
// used, a number of 0 to 32767, on every system.

/// The next number of the portable generator, above 0 and at most 0.99999988: the minimal standard
/// generator of Park and Miller behind a shuffle table of 32 entries, which all callers share. The
/// caller owns the seed, which each call changes. A seed of 0 or less starts the sequence of its
/// size anew; so does the first call of the process, for which a positive seed counts as 1.
double shuffle_random(int& seed);

/// A deviate that a caller may keep for later; -9999 when there is none.
inline constexpr double no_spare = -9999.0;
inline double random_spare = no_spare;

/// Starts the sequence of rand(), and drops the spare deviate.
void seed_random(unsigned n);
/// The same by the time of day, in seconds. Gives the first number of rand().
int seed_random_by_time();

/// 0 to 1, both included, in steps of 1/32767.
double random_unit();
/// 0 up to but not including 1, in finer steps, from two numbers of rand().
double random_fine();
/// An integer of `low` to `high`, both included. The two ends come half as often as the others.
int random_int(int low, int high);
/// 0 to 255, both included. The two ends come half as often as the others.
int random_byte();
/// 1 up to but not including 255.
double random_above_one();

// What these make of given numbers of rand(), 0 to 32767.

double unit_of_rand(int first);
double fine_of_rand(int first, int second);
int int_of_rand(int low, int high, int first, int second);
int byte_of_rand(int first);
double above_one_of_rand(int first, int second);
