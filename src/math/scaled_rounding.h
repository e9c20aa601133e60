#ifndef TRELVANIX_MATH_SCALED_ROUNDING_H
#define TRELVANIX_MATH_SCALED_ROUNDING_H

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <optional>

#include "common/numbers.h"
#include "math/pair.h"
#include "math/wide_number.h"

namespace trelvanix
{

// value 2^exponent: results whose exponent may leave the range of a double.
struct ScaledPair {
    Pair value;
    int exponent;
};

// 2^exponent for exponents from -1022 to 1023.
constexpr double PowerOfTwo(int exponent)
{
    return BitCast<double>(static_cast<std::uint64_t>(exponent + 1023) << 52);
}

// x 2^exponent for |exponent| <= 2000 and x from 2^-100 to 2^100 in magnitude, rounded where it is
// subnormal.
constexpr double ScaleByPowerOfTwo(double x, int exponent)
{
    const int half = exponent / 2;
    return x * PowerOfTwo(half) * PowerOfTwo(exponent - half);
}

// The pair that x stands for; its low part, or both, lose bits where they are subnormal. The low part
// of an infinite one is zero.
inline Pair ToPair(ScaledPair x)
{
    const double high = ScaleByPowerOfTwo(x.value.high, x.exponent);
    return {high, std::isinf(high) ? 0.0 : ScaleByPowerOfTwo(x.value.low, x.exponent)};
}

// The double nearest to every number within the relative bound of x, or nothing where there isn't one.
// x.value from 2^-8 to 2^8 (from 2^-60 where the whole is subnormal, and then not negative);
// |x.exponent| <= 2000; bound from 2^-104.
inline std::optional<double> RoundScaled(ScaledPair x, double relativeBound)
{
    const auto [high, low] = x.value;
    double bound = relativeBound * std::fabs(high);
    if (x.exponent >= -1014 || high >= ScaleByPowerOfTwo(1.0, -1022 - x.exponent)) {
        if (!RoundsSafely(high, low, bound))
            return std::nullopt;
        const double rounded = high + low;
        if (std::abs(x.exponent) <= 1000)
            return rounded * PowerOfTwo(x.exponent);
        return ScaleByPowerOfTwo(rounded, x.exponent);
    }
    if (x.exponent < -1084)
        return 0.0;
    // The result is a multiple of 2^-1074. Added to x, this power of two makes the last bit of the sum
    // that multiple, so that the processor rounds there. What is left of x becomes one double, of which
    // two roundings are uncertain.
    const double shift = ScaleByPowerOfTwo(1.0, -1022 - x.exponent);
    const Pair sum = FastTwoSum(shift, high);
    const double rest = sum.low + low;
    bound += 0x1p-51 * std::fabs(rest);
    const double below = sum.high + (rest - bound);
    if (below != sum.high + (rest + bound))
        return std::nullopt;
    return ScaleByPowerOfTwo(below - shift, x.exponent);
}

// For values between 2^-1000 and 2^1000 in magnitude.
inline std::optional<double> Round(Pair x, double relativeBound)
{
    if (RoundsSafely(x.high, x.low, relativeBound * std::fabs(x.high)))
        return x.high + x.low;
    return std::nullopt;
}

// The last phase: evaluate(limbs) returns a WideNumber, not zero, whose relative error is below
// 2^(-32 limbs), and is asked with more limbs until that decides the rounding. Arguments at which no
// precision would decide are the callers' to sort out. Six limbs are enough for every argument that is
// known; after the last attempt an error of 2^-1300 would be needed to come out wrong.
template <class Function>
double RoundWide(Function evaluate)
{
    WideNumber value;
    for (const int limbs : {6, 12, 24, 42}) {
        value = evaluate(limbs);
        if (const auto rounded = RoundToDouble(value, value.exponent - std::int64_t{32} * limbs + 1))
            return *rounded;
    }
    return ToDouble(value);
}

// The wide number as a pair.
inline Pair ToPair(const WideNumber& x)
{
    const double high = ToDouble(x);
    return {high, ToDouble(Subtract(x, ToWide(high, x.limbs)))};
}

} // namespace trelvanix

#endif
