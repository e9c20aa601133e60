#ifndef TRELVANIX_MATH_WIDE_NUMBER_H
#define TRELVANIX_MATH_WIDE_NUMBER_H

#include <cstdint>
#include <optional>

#include "common/fixed_array.h"

namespace trelvanix
{

// A floating-point number of many 32-bit limbs, for the last phases of the elementary functions, which
// run once in millions of calls: plain school methods, no memory but its own.
//
// Its value is 0.d[0] d[1] ... d[limbs - 1] (digits to the base 2^32) times 2^exponent, negated where
// negative is set; the top bit of d[0] is set unless the number is zero. So it has 32 limbs bits, and
// with ulp = 2^(exponent - 32 limbs) the operations below return at least as many limbs as the longer
// operand has and an error below one ulp of the result, where nothing else is said. The exponent is the
// callers' to keep within some 2^60: no operation checks it. Not thread-shared, copied freely.
struct WideNumber {
    static constexpr int maxLimbs = 48;

    FixedArray<std::uint32_t, maxLimbs> digits{};
    std::int64_t exponent = 0;
    int limbs = 2;
    bool negative = false;
};

// x exactly; finite, limbs from 2 to maxLimbs.
WideNumber ToWide(double x, int limbs);

// 0.digits[0] digits[1] ... digits[count - 1] times 2^exponent, cut to the given limbs.
WideNumber ToWide(const std::uint32_t* digits, int count, std::int64_t exponent, int limbs);

constexpr bool IsZero(const WideNumber& x)
{
    return x.digits[0] == 0;
}

// The exponent of an ulp of x.
constexpr std::int64_t UlpExponent(const WideNumber& x)
{
    return x.exponent - std::int64_t{32} * x.limbs;
}

WideNumber Negate(WideNumber x);

// x 2^power, exactly.
WideNumber Scale(WideNumber x, std::int64_t power);

WideNumber Add(const WideNumber& x, const WideNumber& y);
WideNumber Subtract(const WideNumber& x, const WideNumber& y);
WideNumber Multiply(const WideNumber& x, const WideNumber& y);
WideNumber Multiply(const WideNumber& x, std::uint32_t factor);

// y must not be zero.
WideNumber Divide(const WideNumber& x, const WideNumber& y);
WideNumber Divide(const WideNumber& x, std::uint32_t divisor);

// Square root of x >= 0; error below two ulps.
WideNumber Sqrt(const WideNumber& x);

// Below, equal to or above zero as x is below, equal to or above y.
int Compare(const WideNumber& x, const WideNumber& y);

// The nearest double, ties to even: subnormal, zero or infinite where x is out of range.
double ToDouble(const WideNumber& x);

// The double nearest to every number within 2^errorExponent of x, or nothing where there isn't one: then
// the caller needs more limbs. For 2^errorExponent of at least one ulp of x.
std::optional<double> RoundToDouble(const WideNumber& x, std::int64_t errorExponent);

} // namespace trelvanix

#endif
