#include <cmath>
#include <limits>

#include "math/exponential.h"
#include "math/exponential_core.h"
#include "math/logarithm_core.h"
#include "math/power_core.h"
#include "math/quick_exponential.h"
#include "math/quick_logarithm.h"
#include "math/scaled_rounding.h"
#include "math/wide_exponential.h"

namespace trelvanix
{
namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

bool IsWhole(double x)
{
    return std::trunc(x) == x;
}

// For whole x, infinities included.
bool IsOdd(double x)
{
    return std::fabs(x) < 0x1p53 && std::fmod(x, 2.0) != 0.0;
}

double PowWithoutQuickPhase(double x, double y)
{
    if (x == 1.0 || y == 0.0)
        return 1.0;
    if (std::isnan(x) || std::isnan(y))
        return x + y;
    const double magnitude = std::fabs(x);
    const double sign = std::signbit(x) && IsWhole(y) && IsOdd(y) ? -1.0 : 1.0;
    if (magnitude == 0.0)
        return sign * (y < 0.0 ? infinity : 0.0);
    if (magnitude == infinity)
        return sign * (y < 0.0 ? 0.0 : infinity);
    if (magnitude == 1.0 && std::isinf(y))
        return 1.0;
    if (std::isinf(y))
        return (magnitude > 1.0) == (y > 0.0) ? infinity : 0.0;
    if (x < 0.0 && !IsWhole(y))
        return nan;
    if (magnitude == 1.0)
        return sign;
    return sign * PowOfPositive(magnitude, y);
}

} // namespace

// The product is exact but for y logarithm.low, which has a double's precision: below 2^-105 of the
// whole. Its relative error, times its magnitude, is that of the power.
double Pow(double x, double y)
{
    if (x >= std::numeric_limits<double>::min() && x < infinity) {
        const Pair logarithm = QuickLog(x);
        const Pair product = TwoProduct(y, logarithm.high);
        const double magnitude = std::fabs(product.high);
        if (magnitude < 708.0) {
            const auto [value, exponent] = QuickExp(product.high, product.low + y * logarithm.low);
            const double bound = (0x1p-68 + 0x1.01p-65 * magnitude) * value.high;
            if (RoundsSafely(value.high, value.low, bound))
                return (value.high + value.low) * PowerOfTwo(exponent);
        }
    }
    return PowWithoutQuickPhase(x, y);
}

// The logarithm errs by 31 units of 2^-106, the product by 7: times 32, less than 2^-95.7. Larger exponents
// would cost more of the power's bits; they go through wide numbers, which is slow.
Pair Pow(Pair x, Pair y)
{
    const Pair magnitude = Abs(x);
    if (!(magnitude.high > 0.0 && magnitude.high < infinity && y.high != 0.0 &&
          std::fabs(y.high) < 0x1p900))
        return {Pow(x.high, y.high), 0.0};
    if (x.high < 0.0 && !(IsWhole(y.high) && IsWhole(y.low)))
        return {nan, 0.0};
    const double sign = x.high < 0.0 && IsOdd(y.high) != IsOdd(y.low) ? -1.0 : 1.0;
    const Pair exponent = LogOfPair(magnitude) * y;
    if (!(exponent.high < 709.7 && exponent.high > -745.2))
        return {sign * Exp(exponent.high), 0.0};
    if (std::fabs(exponent.high) <= 32.0)
        return Scale(ToPair(ExpOfPair(exponent)), sign);
    // Beside 1 the low part, above 2^-900 because y is below 2^900, makes the whole logarithm.
    const int limbs = magnitude.high == 1.0 ? 40 : 6;
    return Scale(ToPair(WidePow(ToWide(magnitude, limbs), ToWide(y, limbs), limbs)), sign);
}

} // namespace trelvanix
