#include <cmath>
#include <limits>

#include "math/exponential.h"
#include "math/logarithm_core.h"
#include "math/scaled_rounding.h"
#include "math/wide_exponential.h"

namespace trelvanix
{
namespace
{

#include "math/exponential_constants.inc"

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

// Whether a logarithm of x has a finite value.
bool IsInDomain(double x)
{
    return x > 0.0 && x < infinity;
}

// The logarithm of what isn't in the domain.
double LogOfSpecial(double x)
{
    if (x == 0.0)
        return -infinity;
    return x < 0.0 ? nan : x;
}

// log(x) / log(base) for a whole base. It is rational for a power of the base alone; that is a whole number, which
// rounds safely from any precision, so that some precision decides in every case.
double LogToBase(double x, Pair reciprocal, double base)
{
    if (!IsInDomain(x))
        return LogOfSpecial(x);
    if (const auto result = Round(LogOfPair({x, 0.0}) * reciprocal, 0x1p-97))
        return *result;
    return RoundWide([x, base](int limbs) {
        const int working = limbs + 3;
        return Divide(WideLog(ToWide(x, working), working), WideLog(ToWide(base, working), working));
    });
}

Pair LogToBase(Pair x, Pair reciprocal)
{
    if (!IsInDomain(x.high))
        return {LogOfSpecial(x.high), 0.0};
    return LogOfPair(x) * reciprocal;
}

} // namespace

double Log(double x)
{
    if (!IsInDomain(x))
        return LogOfSpecial(x);
    if (const auto quick = Round(QuickLog(x), 0x1p-65))
        return *quick;
    if (const auto result = Round(LogOfPair({x, 0.0}), 0x1p-98))
        return *result;
    // log(x) is irrational for x != 1: some precision decides.
    return RoundWide([x](int limbs) { return WideLog(ToWide(x, limbs + 2), limbs + 2); });
}

Pair Log(Pair x)
{
    if (!IsInDomain(x.high))
        return {LogOfSpecial(x.high), 0.0};
    return LogOfPair(x);
}

double Log10(double x)
{
    return LogToBase(x, reciprocalOfLn10, 10.0);
}

Pair Log10(Pair x)
{
    return LogToBase(x, reciprocalOfLn10);
}

double Log2(double x)
{
    return LogToBase(x, reciprocalOfLn2, 2.0);
}

Pair Log2(Pair x)
{
    return LogToBase(x, reciprocalOfLn2);
}

double Log1p(double x)
{
    if (!(x > -1.0 && x < infinity))
        return x == 0.0 ? x : LogOfSpecial(1.0 + x);
    // The next term of the series, x^2 / 2, is below a quarter of the distance to the next double.
    if (std::fabs(x) < 0x1p-54)
        return x;
    // 1 + x is a pair exactly.
    if (const auto result = Round(LogOfPair(TwoSum(1.0, x)), 0x1p-98))
        return *result;
    return RoundWide([x](int limbs) {
        const int working = limbs + 4;
        return WideLog(Add(ToWide(1.0, working), ToWide(x, working)), working);
    });
}

Pair Log1p(Pair x)
{
    if (!(x > Pair{-1.0, 0.0} && x.high < infinity))
        return {LogOfSpecial(1.0 + x.high), 0.0};
    if (std::fabs(x.high) < 0x1p-120)
        return x;
    return LogOfOnePlusPair(x);
}

} // namespace trelvanix
