#include <cmath>
#include <limits>
#include <optional>

#include "math/exponential.h"
#include "math/exponential_core.h"
#include "math/scaled_rounding.h"
#include "math/wide_exponential.h"

// Beyond 40 e^-x is below 2^-115 e^x and left out of sums; results there may exceed the range of e^x by
// a factor of two, so that the exponent is kept apart.
namespace trelvanix
{
namespace
{

constexpr double large = 40.0;
constexpr double infinity = std::numeric_limits<double>::infinity();
// Above log(2 * largest double).
constexpr double overflow = 710.5;

ScaledPair HalfExp(Pair x)
{
    const ScaledPair power = ExpOfPair(x);
    return {power.value, power.exponent - 1};
}

// For 0 < x <= large. With t = e^x - 1 all terms have one sign: the error is that of t, 2^-99, and 22
// units of 2^-106 from the three operations.
Pair SinhOfMedium(Pair x)
{
    const Pair t = ExpMinusOneOfPair(x);
    return Scale(t + t / (t + 1.0), 0.5);
}

Pair CoshOfMedium(Pair x)
{
    const Pair power = ToPair(ExpOfPair(x));
    return Scale(power + 1.0 / power, 0.5);
}

// (e^2x - 1) / (e^2x + 1), for 0 < x <= large.
Pair TanhOfMedium(Pair x)
{
    const Pair t = ExpMinusOneOfPair(Scale(x, 2.0));
    return t / (t + 2.0);
}

constexpr double mediumBound = 0x1p-96;

// (e^x + e^-x) / 2, or with a minus. Four more limbs than asked for: the difference loses 28 bits where
// x is small.
WideNumber WideHyperbolic(double x, int limbs, bool subtract)
{
    const int working = limbs + 4;
    const WideNumber power = WideExp(ToWide(x, working), working);
    const WideNumber inverse = Divide(ToWide(1.0, working), power);
    return Scale(subtract ? Subtract(power, inverse) : Add(power, inverse), -1);
}

WideNumber WideTanh(double x, int limbs)
{
    const int working = limbs + 4;
    const WideNumber power = WideExp(ToWide(2.0 * x, working), working);
    const WideNumber one = ToWide(1.0, working);
    return Divide(Subtract(power, one), Add(power, one));
}

// e^|x| / 2, infinite beyond the range.
Pair HalfExpOfLarge(Pair x)
{
    const Pair magnitude = Abs(x);
    return magnitude.high < overflow ? ToPair(HalfExp(magnitude))
                                     : Pair{magnitude.high * infinity, 0.0};
}

// e^x / 2 as pairs give it, if that decides.
std::optional<double> RoundHalfExp(double x)
{
    return RoundScaled(HalfExp({x, 0.0}), 0x1p-98);
}

} // namespace

// The hyperbolic functions of a double other than 0 are irrational: some precision decides.
double Sinh(double x)
{
    const double magnitude = std::fabs(x);
    // x^3 / 6 is below a quarter of the distance to the next double.
    if (magnitude < 0x1p-28)
        return x;
    if (!(magnitude < overflow))
        return x * infinity;
    const auto result = magnitude <= large ? Round(SinhOfMedium({magnitude, 0.0}), mediumBound)
                                           : RoundHalfExp(magnitude);
    if (result)
        return std::copysign(*result, x);
    return RoundWide([x](int limbs) { return WideHyperbolic(x, limbs, true); });
}

double Cosh(double x)
{
    const double magnitude = std::fabs(x);
    // x^2 / 2 is below a quarter of the distance to the next double.
    if (magnitude < 0x1p-28)
        return 1.0;
    if (!(magnitude < overflow))
        return magnitude * infinity;
    const auto result = magnitude <= large ? Round(CoshOfMedium({magnitude, 0.0}), mediumBound)
                                           : RoundHalfExp(magnitude);
    if (result)
        return *result;
    return RoundWide([x](int limbs) { return WideHyperbolic(x, limbs, false); });
}

double Tanh(double x)
{
    const double magnitude = std::fabs(x);
    // x^3 / 3 is below a quarter of the distance to the next double; beyond 20 so is 1 - tanh(x).
    if (magnitude < 0x1p-28 || std::isnan(x))
        return x;
    if (magnitude > 20.0)
        return std::copysign(1.0, x);
    if (const auto result = Round(TanhOfMedium({magnitude, 0.0}), mediumBound))
        return std::copysign(*result, x);
    return RoundWide([x](int limbs) { return WideTanh(x, limbs); });
}

Pair Sinh(Pair x)
{
    // x^3 / 6 is below 2^-120 x.
    if (std::fabs(x.high) < 0x1p-60 || std::isnan(x.high))
        return x;
    const Pair magnitude = Abs(x);
    const Pair result = magnitude.high <= large ? SinhOfMedium(magnitude) : HalfExpOfLarge(magnitude);
    return x.high < 0.0 ? -result : result;
}

Pair Cosh(Pair x)
{
    const Pair magnitude = Abs(x);
    return magnitude.high <= large ? CoshOfMedium(magnitude) : HalfExpOfLarge(magnitude);
}

Pair Tanh(Pair x)
{
    // x^3 / 3 is below 2^-120 x; beyond 40 1 - tanh(x) is below 2^-114.
    if (std::fabs(x.high) < 0x1p-60 || std::isnan(x.high))
        return x;
    const Pair magnitude = Abs(x);
    const Pair result = magnitude.high <= large ? TanhOfMedium(magnitude) : Pair{1.0, 0.0};
    return x.high < 0.0 ? -result : result;
}

} // namespace trelvanix
