#include <cmath>
#include <limits>
#include <optional>

#include "math/exponential.h"
#include "math/exponential_tables.h"
#include "math/logarithm_core.h"
#include "math/scaled_rounding.h"
#include "math/wide_exponential.h"

namespace trelvanix
{
namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

// From here on sqrt(x^2 +- 1) is x to 2^-112: the inverse functions are log(x) + log(2), to less than
// 2^-117 of it.
constexpr double large = 0x1p56;

Pair LogOfDouble(Pair x)
{
    return LogOfPair(x) + ln2Pair;
}

// log(1 + x + x^2 / (1 + sqrt(1 + x^2))) for x > 0: no term cancels, and the logarithm doesn't enlarge
// the relative error of its argument.
Pair AsinhOfPositive(Pair x)
{
    if (x.high >= large)
        return LogOfDouble(x);
    const Pair square = x * x;
    return LogOfOnePlusPair(x + square / (1.0 + Sqrt(1.0 + square)));
}

// log(1 + t + sqrt(t (2 + t))), t = x - 1 >= 0.
Pair AcoshOfPair(Pair x)
{
    if (x.high >= large)
        return LogOfDouble(x);
    const Pair t = x - 1.0;
    return LogOfOnePlusPair(t + Sqrt(t * (2.0 + t)));
}

// log(1 + 2x / (1 - x)) / 2 for 0 < x < 1.
Pair AtanhOfPositive(Pair x)
{
    return Scale(LogOfOnePlusPair(Scale(x, 2.0) / (1.0 - x)), 0.5);
}

// The logarithm errs by 2^-97, its argument by 40 units of 2^-106 at most.
constexpr double bound = 0x1p-96;

// Arguments above 2^-28 in magnitude, or above 2^-52 beyond 1, lose as many bits of the logarithm of a
// number near 1: four more limbs than asked for.
constexpr int moreLimbs = 4;

WideNumber WideAsinh(double x, int limbs)
{
    const int working = limbs + moreLimbs;
    const WideNumber wide = ToWide(x, working);
    const WideNumber square = Multiply(wide, wide);
    return WideLog(Add(wide, Sqrt(Add(square, ToWide(1.0, working)))), working);
}

WideNumber WideAcosh(double x, int limbs)
{
    const int working = limbs + moreLimbs;
    const WideNumber wide = ToWide(x, working);
    const WideNumber one = ToWide(1.0, working);
    const WideNumber product = Multiply(Subtract(wide, one), Add(wide, one));
    return WideLog(Add(wide, Sqrt(product)), working);
}

WideNumber WideAtanh(double x, int limbs)
{
    const int working = limbs + moreLimbs;
    const WideNumber wide = ToWide(x, working);
    const WideNumber one = ToWide(1.0, working);
    return Scale(WideLog(Divide(Add(one, wide), Subtract(one, wide)), working), -1);
}

} // namespace

// The inverse functions of a double are irrational where they aren't zero: some precision decides.
double Asinh(double x)
{
    const double magnitude = std::fabs(x);
    // x^3 / 6 is below a quarter of the distance to the next double.
    if (magnitude < 0x1p-28 || !(magnitude < infinity))
        return x;
    if (const auto result = Round(AsinhOfPositive({magnitude, 0.0}), bound))
        return std::copysign(*result, x);
    return std::copysign(RoundWide([magnitude](int limbs) { return WideAsinh(magnitude, limbs); }), x);
}

double Acosh(double x)
{
    if (!(x >= 1.0 && x < infinity))
        return x < 1.0 ? nan : x;
    if (x == 1.0)
        return 0.0;
    if (const auto result = Round(AcoshOfPair({x, 0.0}), bound))
        return *result;
    return RoundWide([x](int limbs) { return WideAcosh(x, limbs); });
}

double Atanh(double x)
{
    const double magnitude = std::fabs(x);
    // x^3 / 3 is below a quarter of the distance to the next double.
    if (magnitude < 0x1p-28)
        return x;
    if (magnitude == 1.0)
        return std::copysign(infinity, x);
    if (!(magnitude < 1.0))
        return magnitude > 1.0 ? nan : x;
    if (const auto result = Round(AtanhOfPositive({magnitude, 0.0}), bound))
        return std::copysign(*result, x);
    return RoundWide([x](int limbs) { return WideAtanh(x, limbs); });
}

Pair Asinh(Pair x)
{
    // x^3 / 6 is below 2^-120 x.
    if (std::fabs(x.high) < 0x1p-60 || !(std::fabs(x.high) < infinity))
        return x;
    const Pair result = AsinhOfPositive(Abs(x));
    return x.high < 0.0 ? -result : result;
}

Pair Acosh(Pair x)
{
    if (!(x > Pair{1.0, 0.0} && x.high < infinity))
        return {x < Pair{1.0, 0.0} ? nan : Acosh(x.high), 0.0};
    return AcoshOfPair(x);
}

Pair Atanh(Pair x)
{
    // x^3 / 3 is below 2^-120 x.
    if (std::fabs(x.high) < 0x1p-60)
        return x;
    const Pair magnitude = Abs(x);
    if (!(magnitude < Pair{1.0, 0.0}))
        return {magnitude > Pair{1.0, 0.0} ? nan : Atanh(x.high), 0.0};
    const Pair result = AtanhOfPositive(magnitude);
    return x.high < 0.0 ? -result : result;
}

} // namespace trelvanix
