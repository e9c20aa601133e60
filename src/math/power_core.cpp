#include "math/power_core.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include "common/fixed_array.h"
#include "common/numbers.h"
#include "math/exponential_core.h"
#include "math/logarithm_core.h"
#include "math/scaled_rounding.h"
#include "math/wide_exponential.h"

namespace trelvanix
{
namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();

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
    const auto bits = BitCast<std::uint64_t>(x);
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
// doubles. With x = m 2^e and y = n / 2^g, m and n odd, x^y is rational only if x has a 2^g-th root of
// the form m' 2^e', and has no infinite expansion only if n > 0 or m' = 1; 3^35 has more than 54 bits.
// For x > 0, x != 1, 2^-65 < |y| < 2^64 and x^y within the range that doubles can round to.
std::optional<double> RoundExactPower(double x, double y)
{
    constexpr std::uint64_t limit = std::uint64_t{1} << 54;
    OddNumber base = ToOddNumber(x);
    // Ends: m' > 1 has no more than five square roots in a row, e' no more than ten halves.
    while (std::trunc(y) != y) {
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
    const FixedArray<std::uint32_t, 2> digits = {static_cast<std::uint32_t>(power >> 32),
                                                 static_cast<std::uint32_t>(power)};
    return ToDouble(Scale(ToWide(digits.begin(), 2, 64, 2), exponent));
}

} // namespace

// |y log(x)| < 2^11 costs eleven bits.
WideNumber WidePow(const WideNumber& x, const WideNumber& y, int limbs)
{
    return WideExp(Multiply(y, WideLog(x, limbs + 2)), limbs + 2);
}

double PowOfPositive(double x, double y)
{
    // |log(x)| is at least 2^-53.01 and below 745.2.
    if (std::fabs(y) >= 0x1p64)
        return (x > 1.0) == (y > 0.0) ? infinity : 0.0;
    if (std::fabs(y) <= 0x1p-65)
        return 1.0;
    const Pair exponent = LogOfPair({x, 0.0}) * y;
    // Above the logarithm of the largest double, below that of half of the smallest.
    if (exponent.high > 709.8)
        return infinity;
    if (exponent.high < -745.2)
        return 0.0;
    const double bound = 0x1p-98 + 0x1p-98 * std::fabs(exponent.high);
    if (const auto result = RoundScaled(ExpOfPair(exponent), bound))
        return *result;
    if (const auto exact = RoundExactPower(x, y))
        return *exact;
    return RoundWide(
        [x, y](int limbs) { return WidePow(ToWide(x, limbs + 2), ToWide(y, limbs + 2), limbs); });
}

} // namespace trelvanix
