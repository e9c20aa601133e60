#ifndef TRELVANIX_MEASURE_ROUNDED_FUNCTIONS_H
#define TRELVANIX_MEASURE_ROUNDED_FUNCTIONS_H

#include <mpfr.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace trelvanix::measure
{

// Functions of one argument ignore the second.
struct Arguments {
    double x, y = 0.0;
};

using Random = std::mt19937_64;

// The same numbers with every standard library, unlike its distributions.
inline double Unit(Random& random)
{
    return static_cast<double>(random() >> 11) * 0x1p-53;
}

inline double Uniform(Random& random, double lower, double upper)
{
    return lower + (upper - lower) * Unit(random);
}

inline double AnyBits(Random& random)
{
    return std::bit_cast<double>(random());
}

// Where arguments come from.
struct Range {
    std::string name;
    std::function<Arguments(Random&)> draw;
};

inline Range UniformRange(const std::string& name, double lower, double upper)
{
    return {name, [=](Random& random) { return Arguments{Uniform(random, lower, upper)}; }};
}

// Every magnitude from 2^lower to 2^upper as often as any other, with either sign or with the positive
// one.
inline Range MagnitudeRange(const std::string& name, double lower, double upper, bool isSigned)
{
    return {name, [=](Random& random) {
                const double magnitude = std::exp2(Uniform(random, lower, upper));
                return Arguments{isSigned && random() % 2 == 0 ? -magnitude : magnitude};
            }};
}

inline Range AllDoubles()
{
    return {"all doubles", [](Random& random) { return Arguments{AnyBits(random), AnyBits(random)}; }};
}

struct RoundedFunction {
    std::string name;
    double (*ours)(Arguments);
    double (*platform)(Arguments); // null where the C library has no such function
    int (*exact)(mpfr_t result, mpfr_t x, mpfr_t y);
    std::vector<Range> ranges;
};

std::vector<RoundedFunction> ExponentialFunctions();
std::vector<RoundedFunction> TrigonometricFunctions();

} // namespace trelvanix::measure

#endif
