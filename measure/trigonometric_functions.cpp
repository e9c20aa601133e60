// Sine, cosine, tangent and their inverses, over the angles that transforms, windows and designs have and over
// all others.
#include <cmath>
#include <string>
#include <vector>

#include "common/constants.h"
#include "math/trigonometric.h"
#include "rounded_functions.h"

namespace trelvanix::measure
{
namespace
{

// Doubles next to multiples of pi / 2, where reduction cancels most.
Arguments NearQuarterTurns(Random& random)
{
    const double turns = std::floor(std::exp2(Uniform(random, 0.0, 40.0)));
    const double angle = turns * halfPi;
    return {std::nextafter(angle, random() % 2 == 0 ? 0.0 : 2.0 * angle)};
}

// Angles of windows: 2 pi k / n, times 1 to 4.
Arguments WindowAngles(Random& random)
{
    const auto n = static_cast<double>(1 + random() % 5000);
    const auto k = static_cast<double>(random() % 5000);
    return {static_cast<double>(1 + random() % 4) * 2.0 * pi * k / n};
}

Arguments NearOne(Random& random)
{
    const double magnitude = 1.0 - std::exp2(Uniform(random, -53.0, -1.0));
    return {random() % 2 == 0 ? magnitude : -magnitude};
}

// Multiples of small fractions, where the exact cases are, and their neighbours.
Arguments NearFractions(Random& random)
{
    const double x = static_cast<double>(random() % 4096) / 256.0 - 8.0;
    const auto kind = random() % 3;
    return {kind == 0 ? x : std::nextafter(x, kind == 1 ? -9.0 : 9.0)};
}

Arguments Points(Random& random)
{
    return {Uniform(random, -1.0, 1.0), Uniform(random, -1.0, 1.0)};
}

double SignedMagnitude(Random& random, double lower, double upper)
{
    const double magnitude = std::exp2(Uniform(random, lower, upper));
    return random() % 2 == 0 ? -magnitude : magnitude;
}

Arguments PointsOfEveryRatio(Random& random)
{
    return {SignedMagnitude(random, -70.0, 70.0), SignedMagnitude(random, -70.0, 70.0)};
}

// Angles that are subnormal, many of them exact or halfway between two doubles but for y^3 / 3 x^3.
Arguments SubnormalAngles(Random& random)
{
    const auto y = static_cast<double>(1 + random() % 256);
    const auto x = static_cast<double>(1 + random() % 64);
    return {std::ldexp(y, -1074 + static_cast<int>(random() % 8)),
            std::ldexp(x, static_cast<int>(random() % 10))};
}

} // namespace

std::vector<RoundedFunction> TrigonometricFunctions()
{
    const Range turn = UniformRange("[-2 pi, 2 pi]", -twoPi, twoPi);
    const Range quarter = UniformRange("[0, pi / 2]", 0.0, halfPi);
    const Range small = MagnitudeRange("±2^-30 to 2^3", -30.0, 3.0, true);
    const Range large = MagnitudeRange("±2^3 to 2^1024", 3.0, 1024.0, true);
    const Range nearQuarterTurns = {"next to multiples of pi / 2", NearQuarterTurns};
    const Range windowAngles = {"angles of windows", WindowAngles};
    const Range legs = UniformRange("[-1, 1]", -1.0, 1.0);
    const Range smallLegs = MagnitudeRange("±2^-62 to 1", -62.0, 0.0, true);
    const Range nearOne = {"near -1 and 1", NearOne};
    const Range turns = UniformRange("[-2, 2]", -2.0, 2.0);
    const Range manyTurns = MagnitudeRange("±2^-1074 to 2^54", -1074.0, 54.0, true);
    const Range fractions = {"fractions and neighbours", NearFractions};
    return {
        {"sin",
         [](Arguments a) { return Sin(a.x); },
         [](Arguments a) { return std::sin(a.x); },
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_sin(r, x, MPFR_RNDN); },
         {turn, windowAngles, small, large, nearQuarterTurns, AllDoubles()}},
        {"cos",
         [](Arguments a) { return Cos(a.x); },
         [](Arguments a) { return std::cos(a.x); },
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_cos(r, x, MPFR_RNDN); },
         {turn, windowAngles, small, large, nearQuarterTurns, AllDoubles()}},
        {"sin of both",
         [](Arguments a) { return SinAndCos(a.x).sine; },
         [](Arguments a) { return std::sin(a.x); },
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_sin(r, x, MPFR_RNDN); },
         {turn, AllDoubles()}},
        {"cos of both",
         [](Arguments a) { return SinAndCos(a.x).cosine; },
         [](Arguments a) { return std::cos(a.x); },
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_cos(r, x, MPFR_RNDN); },
         {turn, AllDoubles()}},
        {"tan",
         [](Arguments a) { return Tan(a.x); },
         [](Arguments a) { return std::tan(a.x); },
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_tan(r, x, MPFR_RNDN); },
         {quarter, small, large, nearQuarterTurns, AllDoubles()}},
        {"atan",
         [](Arguments a) { return Atan(a.x); },
         [](Arguments a) { return std::atan(a.x); },
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_atan(r, x, MPFR_RNDN); },
         {UniformRange("[-4, 4]", -4.0, 4.0), MagnitudeRange("±2^-30 to 2^64", -30.0, 64.0, true),
          AllDoubles()}},
        {"atan2",
         [](Arguments a) { return Atan2(a.x, a.y); },
         [](Arguments a) { return std::atan2(a.x, a.y); },
         [](mpfr_t r, mpfr_t x, mpfr_t y) { return mpfr_atan2(r, x, y, MPFR_RNDN); },
         {{"points of [-1, 1]^2", Points},
          {"points of every ratio", PointsOfEveryRatio},
          {"subnormal angles", SubnormalAngles},
          AllDoubles()}},
        {"asin",
         [](Arguments a) { return Asin(a.x); },
         [](Arguments a) { return std::asin(a.x); },
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_asin(r, x, MPFR_RNDN); },
         {legs, smallLegs, nearOne, AllDoubles()}},
        {"acos",
         [](Arguments a) { return Acos(a.x); },
         [](Arguments a) { return std::acos(a.x); },
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_acos(r, x, MPFR_RNDN); },
         {legs, smallLegs, nearOne, AllDoubles()}},
        {"sin pi x",
         [](Arguments a) { return SinPi(a.x); },
         nullptr,
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_sinpi(r, x, MPFR_RNDN); },
         {turns, fractions, manyTurns, AllDoubles()}},
        {"cos pi x",
         [](Arguments a) { return CosPi(a.x); },
         nullptr,
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_cospi(r, x, MPFR_RNDN); },
         {turns, fractions, manyTurns, AllDoubles()}},
        {"tan pi x",
         [](Arguments a) { return TanPi(a.x); },
         nullptr,
         [](mpfr_t r, mpfr_t x, mpfr_t) { return mpfr_tanpi(r, x, MPFR_RNDN); },
         {turns, fractions, manyTurns, AllDoubles()}},
    };
}

} // namespace trelvanix::measure
