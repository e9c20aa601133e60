#include <cmath>
#include <limits>

#include "math/exponential.h"
#include "math/exponential_tables.h"
#include "math/logarithm_core.h"
#include "math/quick_logarithm.h"
#include "math/scaled_rounding.h"
#include "math/wide_exponential.h"

namespace trelvanix
{
namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();

// log(x) / log(base) for a whole base. It is rational for a power of the base alone; that is a whole
// number, which rounds safely from any precision, so that some precision decides in every case.
double LogToBase(double x, Pair reciprocal, double base)
{
    if (!IsInDomainOfLog(x))
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
    if (!IsInDomainOfLog(x.high))
        return {LogOfSpecial(x.high), 0.0};
    return LogOfPair(x) * reciprocal;
}

} // namespace

double Log(double x)
{
    if (x >= std::numeric_limits<double>::min() && x < infinity) {
        if (const auto result = Round(QuickLog(x), 0x1p-65))
            return *result;
    }
    return LogByPairs(x);
}

Pair Log(Pair x)
{
    if (!IsInDomainOfLog(x.high))
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
