#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include "math/exponential.h"
#include "math/exponential_core.h"
#include "math/logarithm_core.h"
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

// odd 2^exponent.
struct OddNumber {
    std::uint64_t odd;
    int exponent;
};

// x > 0 as an odd number times a power of two.
OddNumber ToOddNumber(double x)
{
    int exponent = -1074;
    if (x < 0x1p-1000) {
        x *= 0x1p100;
        exponent -= 100;
    }
    const auto bits = std::bit_cast<std::uint64_t>(x);
    const std::uint64_t significand = (bits & 0xFFFFFFFFFFFFFU) | std::uint64_t{1} << 52;
    const int zeros = std::countr_zero(significand);
    return {significand >> zeros, exponent + static_cast<int>(bits >> 52) - 1 + zeros};
}

// The square root of a number of this form where it is one too.
std::optional<OddNumber> ExactSqrt(OddNumber x)
{
    const auto root = static_cast<std::uint64_t>(std::sqrt(static_cast<double>(x.odd)));
    if (x.exponent % 2 != 0 || root * root != x.odd)
        return std::nullopt;
    return OddNumber{root, x.exponent / 2};
}

// x^y rounded where it is odd * 2^exponent with at most 54 bits, which may lie halfway between two
// doubles. With x = m 2^e and y = n / 2^g, m and n odd, x^y is rational only if x has a 2^g-th root of the form
// m' 2^e', and has no infinite expansion only if n > 0 or m' = 1; 3^35 has more than 54 bits.
// For x > 0, x != 1, 2^-65 < |y| < 2^64 and x^y within the range that doubles can round to.
std::optional<double> RoundExactPower(double x, double y)
{
    constexpr std::uint64_t limit = std::uint64_t{1} << 54;
    OddNumber base = ToOddNumber(x);
    // Ends: m' > 1 has no more than five square roots in a row, e' no more than ten halves.
    while (!IsWhole(y)) {
        const auto root = ExactSqrt(base);
        if (!root)
            return std::nullopt;
        base = *root;
        y *= 2.0;
    }
    if (base.odd != 1 && (y < 0.0 || y > 34.0))
        return std::nullopt;
    // Below 1100 in magnitude, because the power is in range.
    const auto exponent = static_cast<std::int64_t>(y * base.exponent);
    std::uint64_t power = 1;
    for (int i = 0; base.odd != 1 && i < static_cast<int>(y); ++i) {
        if (power > limit / base.odd)
            return std::nullopt;
        power *= base.odd;
    }
    const std::array<std::uint32_t, 2> digits = {static_cast<std::uint32_t>(power >> 32),
                                                 static_cast<std::uint32_t>(power)};
    return ToDouble(Scale(ToWide(digits.data(), 2, 64, 2), exponent));
}

// e^(y log(x)) to as many limbs; |y log(x)| < 2^11 costs eleven bits.
WideNumber WidePow(const WideNumber& x, const WideNumber& y, int limbs)
{
    return WideExp(Multiply(y, WideLog(x, limbs + 2)), limbs + 2);
}

// x^y for x > 0, x != 1, both finite, y != 0.
double PowOfPositive(double x, double y)
{
    // |log(x)| is at least 2^-53.01 and below 745.2.
    if (std::fabs(y) >= 0x1p64)
        return (x > 1.0) == (y > 0.0) ? infinity : 0.0;
    if (std::fabs(y) <= 0x1p-65)
        return 1.0;
    // The product is exact but for y logarithm.low, which has a double's precision: below 2^-105 of the whole.
    const Pair logarithm = QuickLog(x);
    const Pair product = TwoProduct(y, logarithm.high);
    if (product.high > 709.8)
        return infinity;
    if (product.high < -745.2)
        return 0.0;
    const double quickBound = 0x1p-67 + 0x1.01p-65 * std::fabs(product.high);
    if (const auto quick =
            RoundScaled(QuickExp(product.high, product.low + y * logarithm.low), quickBound))
        return *quick;
    const Pair exponent = LogOfPair({x, 0.0}) * y;
    const double bound = 0x1p-98 + 0x1p-98 * std::fabs(product.high);
    if (const auto result = RoundScaled(ExpOfPair(exponent), bound))
        return *result;
    if (const auto exact = RoundExactPower(x, y))
        return *exact;
    return RoundWide(
        [x, y](int limbs) { return WidePow(ToWide(x, limbs + 2), ToWide(y, limbs + 2), limbs); });
}

} // namespace

double Pow(double x, double y)
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

// Beyond e^8 the errors of the logarithm and of the product, relative to the exponent, would count
// too much: there the few powers that a design takes are computed in wide numbers.
Pair Pow(Pair x, Pair y)
{
    const Pair magnitude = Abs(x);
    const bool isSpecial = !(magnitude.high > 0.0 && magnitude.high < infinity && y.high != 0.0 &&
                             std::fabs(y.high) < 0x1p900);
    const bool isWhole = IsWhole(y.high) && IsWhole(y.low);
    if (isSpecial || (x.high < 0.0 && !isWhole))
        return {isWhole ? Pow(x.high, y.high) : Pow(x.high, 0.5), 0.0};
    const double sign = x.high < 0.0 && IsOdd(y.high) != IsOdd(y.low) ? -1.0 : 1.0;
    const Pair exponent = LogOfPair(magnitude) * y;
    if (!(exponent.high < 709.7 && exponent.high > -745.2))
        return {sign * Exp(exponent.high), 0.0};
    if (std::fabs(exponent.high) <= 8.0)
        return Scale(ToPair(ExpOfPair(exponent)), sign);
    constexpr int limbs = 6;
    return Scale(ToPair(WidePow(ToWide(magnitude, limbs), ToWide(y, limbs), limbs)), sign);
}

} // namespace trelvanix
