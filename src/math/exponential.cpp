#include "math/exponential.h"

#include <cmath>
#include <limits>

#include "math/exponential_core.h"
#include "math/quick_exponential.h"
#include "math/scaled_rounding.h"
#include "math/wide_exponential.h"

namespace trelvanix
{
namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();

} // namespace

double Exp(double x)
{
    if (std::fabs(x) < 708.0) {
        const auto [value, exponent] = QuickExp(x, 0.0);
        if (RoundsSafely(value.high, value.low, 0x1.1p-67))
            return (value.high + value.low) * PowerOfTwo(exponent);
    }
    return ExpByPairs(x);
}

Pair Exp(Pair x)
{
    if (!(x.high < 709.7 && x.high > -745.2))
        return {Exp(x.high), 0.0};
    return ToPair(ExpOfPair(x));
}

double Expm1(double x)
{
    if (!(x < 709.8))
        return x + infinity;
    if (x < -40.0)
        return -1.0;
    // The next term of the series, x^2 / 2, is below a quarter of the distance to the next double.
    if (std::fabs(x) < 0x1p-54)
        return x;
    if (x < 700.0) {
        if (const auto result = Round(ExpMinusOneOfPair({x, 0.0}), 0x1p-98))
            return *result;
    } else {
        // The difference of one is below 2^-1000 of it.
        if (const auto result = RoundScaled(ExpOfPair({x, 0.0}), 0x1p-98))
            return *result;
    }
    return RoundWide([x](int limbs) {
        const int working = limbs + 4;
        return Subtract(WideExp(ToWide(x, working), working), ToWide(1.0, working));
    });
}

Pair Expm1(Pair x)
{
    if (!(x.high < 709.7))
        return {Expm1(x.high), 0.0};
    if (std::fabs(x.high) < 0x1p-120)
        return x;
    if (x.high < -100.0)
        return {-1.0, std::fabs(x.high) < 745.0 ? Exp(x.high) : 0.0};
    if (x.high < 700.0)
        return ExpMinusOneOfPair(x);
    return ToPair(ExpOfPair(x));
}

} // namespace trelvanix
