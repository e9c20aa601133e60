// The exponential, the logarithm and their family, over the arguments that filter designs have and over
// all others.
#include <cmath>
#include <string>
#include <vector>

#include "math/exponential.h"
#include "rounded_functions.h"

namespace trelvanix::measure
{
namespace
{

Range Powers(const std::string& name, Arguments (*draw)(Random&))
{
    return {name, draw};
}

Arguments Decibels(Random& random)
{
    return {10.0, Uniform(random, -300.0, 300.0) / 20.0};
}

Arguments PowersOfTwo(Random& random)
{
    return {2.0, Uniform(random, -1080.0, 1030.0)};
}

// Windows and elliptic functions: squares and small powers of numbers up to 1.
Arguments SmallPowers(Random& random)
{
    return {Uniform(random, 0.0, 1.0), static_cast<double>(1 + random() % 12)};
}

// Results of every magnitude, subnormal ones included: y = t / log(x).
Arguments EveryResult(Random& random)
{
    const double x = std::exp2(Uniform(random, -1074.0, 1024.0));
    return {x, Uniform(random, -745.0, 710.0) / std::log(x)};
}

Arguments SubnormalResult(Random& random)
{
    const double x = Uniform(random, 0.0, 8.0);
    return {x, Uniform(random, -745.2, -708.0) / std::log(x)};
}

Arguments NearOne(Random& random)
{
    const double x = 1.0 + std::exp2(Uniform(random, -52.0, -2.0)) * (random() % 2 == 0 ? 1.0 : -1.0);
    return {x, Uniform(random, -700.0, 700.0) / std::log(x)};
}

// x^y exact or halfway between two doubles, or next to that.
Arguments NearMidpoint(Random& random)
{
    const auto root = static_cast<int>(random() % 4);
    const auto base = static_cast<double>(random() >> (11 + random() % 52));
    const double x = std::pow(base, std::exp2(root));
    const double y = static_cast<double>(1 + random() % 34) / std::exp2(root);
    return {random() % 4 == 0 ? std::nextafter(x, 0.0) : x, y};
}

// Sides of every ratio at which both count, of any magnitude.
Arguments Sides(Random& random)
{
    const double x = std::exp2(Uniform(random, -1074.0, 1024.0));
    return {x, x * std::exp2(Uniform(random, -56.0, 0.0))};
}

// Integers: sums of squares that are squares, and squares of midpoints, occur.
Arguments WholeSides(Random& random)
{
    const std::uint64_t m = random() % 134217728, n = random() % 134217728;
    return {std::fabs(static_cast<double>(m * m) - static_cast<double>(n * n)),
            2.0 * static_cast<double>(m * n)};
}

Arguments SubnormalSides(Random& random)
{
    return {static_cast<double>(random() % 100000000) * 0x1p-1074,
            static_cast<double>(random() % 100000000) * 0x1p-1074};
}

} // namespace

std::vector<RoundedFunction> ExponentialFunctions()
{
    const Range nearOne = {"near 1", [](Random& random) {
                               const double distance = std::exp2(Uniform(random, -53.0, -3.0));
                               return Arguments{random() % 2 == 0 ? 1.0 + distance : 1.0 - distance};
                           }};
    const Range positive = MagnitudeRange("2^-1074 to 2^1024", -1074.0, 1024.0, false);
    const Range small = MagnitudeRange("±2^-60 to 2^3", -60.0, 3.0, true);
    return {
        {"exp",
         [](Arguments a) { return Exp(a.x); },
         [](Arguments a) { return std::exp(a.x); },
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_exp(r, x, MPFR_RNDN); },
         {UniformRange("[-2, 2]", -2.0, 2.0), UniformRange("[-745, 710]", -745.2, 710.0),
          UniformRange("subnormal results", -745.2, -708.3), small, AllDoubles()}},
        {"log",
         [](Arguments a) { return Log(a.x); },
         [](Arguments a) { return std::log(a.x); },
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_log(r, x, MPFR_RNDN); },
         {UniformRange("[0, 4]", 0.0, 4.0), nearOne, positive, AllDoubles()}},
        {"pow",
         [](Arguments a) { return Pow(a.x, a.y); },
         [](Arguments a) { return std::pow(a.x, a.y); },
         [](mpfr_t r, mpfr_t x, mpfr_t y) { return mpfr_pow(r, x, y, MPFR_RNDN); },
         {Powers("10^(x / 20), ±300 dB", Decibels), Powers("2^x", PowersOfTwo),
          Powers("[0, 1]^n, n to 12", SmallPowers), Powers("results of every magnitude", EveryResult),
          Powers("subnormal results", SubnormalResult), Powers("bases near 1", NearOne),
          Powers("exact, midpoints and neighbours", NearMidpoint), AllDoubles()}},
        {"log10",
         [](Arguments a) { return Log10(a.x); },
         [](Arguments a) { return std::log10(a.x); },
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_log10(r, x, MPFR_RNDN); },
         {UniformRange("[0, 4]", 0.0, 4.0), nearOne, positive, AllDoubles()}},
        {"log2",
         [](Arguments a) { return Log2(a.x); },
         [](Arguments a) { return std::log2(a.x); },
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_log2(r, x, MPFR_RNDN); },
         {UniformRange("[0, 4]", 0.0, 4.0), nearOne, positive, AllDoubles()}},
        {"expm1",
         [](Arguments a) { return Expm1(a.x); },
         [](Arguments a) { return std::expm1(a.x); },
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_expm1(r, x, MPFR_RNDN); },
         {UniformRange("[-40, 40]", -40.0, 40.0), UniformRange("[-1, 710]", -1.0, 710.0), small,
          AllDoubles()}},
        {"log1p",
         [](Arguments a) { return Log1p(a.x); },
         [](Arguments a) { return std::log1p(a.x); },
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_log1p(r, x, MPFR_RNDN); },
         {UniformRange("[-1, 4]", -1.0, 4.0), small, positive, AllDoubles()}},
        {"sinh",
         [](Arguments a) { return Sinh(a.x); },
         [](Arguments a) { return std::sinh(a.x); },
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_sinh(r, x, MPFR_RNDN); },
         {UniformRange("[-4, 4]", -4.0, 4.0), UniformRange("[-711, 711]", -711.0, 711.0), small,
          AllDoubles()}},
        {"cosh",
         [](Arguments a) { return Cosh(a.x); },
         [](Arguments a) { return std::cosh(a.x); },
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_cosh(r, x, MPFR_RNDN); },
         {UniformRange("[-4, 4]", -4.0, 4.0), UniformRange("[-711, 711]", -711.0, 711.0), small,
          AllDoubles()}},
        {"tanh",
         [](Arguments a) { return Tanh(a.x); },
         [](Arguments a) { return std::tanh(a.x); },
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_tanh(r, x, MPFR_RNDN); },
         {UniformRange("[-4, 4]", -4.0, 4.0), UniformRange("[-21, 21]", -21.0, 21.0), small,
          AllDoubles()}},
        {"asinh",
         [](Arguments a) { return Asinh(a.x); },
         [](Arguments a) { return std::asinh(a.x); },
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_asinh(r, x, MPFR_RNDN); },
         {UniformRange("[-4, 4]", -4.0, 4.0), MagnitudeRange("±2^-60 to 2^1024", -60.0, 1024.0, true),
          small, AllDoubles()}},
        {"acosh",
         [](Arguments a) { return Acosh(a.x); },
         [](Arguments a) { return std::acosh(a.x); },
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_acosh(r, x, MPFR_RNDN); },
         {UniformRange("[1, 10]", 1.0, 10.0), nearOne,
          MagnitudeRange("1 to 2^1024", 0.0, 1024.0, false), AllDoubles()}},
        {"atanh",
         [](Arguments a) { return Atanh(a.x); },
         [](Arguments a) { return std::atanh(a.x); },
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_atanh(r, x, MPFR_RNDN); },
         {UniformRange("[-1, 1]", -1.0, 1.0), MagnitudeRange("±2^-60 to 1", -60.0, 0.0, true), nearOne,
          AllDoubles()}},
        {"hypot",
         [](Arguments a) { return Hypot(a.x, a.y); },
         [](Arguments a) { return std::hypot(a.x, a.y); },
         [](mpfr_t r, mpfr_t x, mpfr_t y) { return mpfr_hypot(r, x, y, MPFR_RNDN); },
         {Powers("any ratio, any magnitude", Sides), Powers("integers", WholeSides),
          Powers("subnormal", SubnormalSides), AllDoubles()}},
    };
}

} // namespace trelvanix::measure
