#pragma once

// Random numbers of two kinds. Those of shuffle_random are the same on every system. The others are
// made from std::rand, of which only 15 bits are taken everywhere, 0 to 32767, and differ between
// systems.

/// Gives a number above 0, at most 0.99999988: a linear congruential sequence (times 16807, modulo
/// 2^31 - 1) that a table of 32 of its numbers shuffles. All callers share that table, and each
/// call changes `seed`. To begin again, give a negative seed, -1, -2, ... for different
/// sequences (0 is like -1). The first call begins in any case, a positive seed being taken for 1.
double shuffle_random(int& seed);

/// A deviate that a caller may keep for later; -9999 when there is none.
inline constexpr double no_spare = -9999.0;
inline double random_spare = no_spare;

/// Starts the sequence of rand(), and drops the spare deviate.
void seed_random(unsigned n);
/// The same by the time of day, in seconds. Gives the first number of rand().
int seed_random_by_time();

/// A multiple of 1/32767 in [0, 1].
double random_unit();
/// A number in [0, 1), in finer steps; uses up two numbers of rand().
double random_fine();
/// An integer of `low` to `high`, both included. The two ends come half as often as the others.
int random_int(int low, int high);
/// An integer in [0, 255], with ends as in random_int.
int random_byte();
/// A number in [1, 255), as fine as those of random_fine.
double random_above_one();

// What these make of given numbers of rand(), 0 to 32767.

double unit_of_rand(int first);
double fine_of_rand(int first, int second);
int int_of_rand(int low, int high, int first, int second);
int byte_of_rand(int first);
double above_one_of_rand(int first, int second);
