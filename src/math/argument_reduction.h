#ifndef TRELVANIX_MATH_ARGUMENT_REDUCTION_H
#define TRELVANIX_MATH_ARGUMENT_REDUCTION_H

#include <cmath>
#include <cstdint>

#include "common/numbers.h"
#include "math/trigonometric_tables.h"
#include "math/wide_number.h"

namespace trelvanix
{

// An angle as index pi / 128 + high + low, up to whole turns; |high| below 0.0124, |low| <= ulp(high) / 2.
struct ReducedAngle {
    int index;
    double high;
    double low;
    double error; // bound of the absolute error
};

// An angle as index pi / 128 + rest, up to whole turns. Relative error of the rest below 2^-101, unless a
// pair of doubles lies closer than 2^-130 to a multiple of pi / 128.
struct ReducedPair {
    int index;
    Pair rest;
};

// An angle as quarter pi / 2 + rest, up to whole turns; |rest| <= pi / 4.
struct WideReduced {
    int quarter;
    WideNumber rest;
};

// Largest argument of ReduceModerate.
inline constexpr double largestModerate = 12800.0;

// For |x| <= largestModerate, by subtracting three parts of the multiple of pi / 128: k < 2^19.1 times the
// parts of 33 bits are exact, and so is x - k stepHigh, which is a multiple of the smaller of two ulps and
// small. The second difference keeps what it rounds off: where it is cancellation that makes |x - k
// stepHigh| the smaller term, the difference is a multiple of 2^-72 below 2^-19, hence exact. What is lost
// is the rounding of k stepLow < k 2^-74, of its sum with low (below |low| <= 2^-60 or k 2^-74, each times
// 2^-53), of the normalisation where high is the smaller part, and k times the error of the third part,
// 2^-128: in sum below k 2^-123 + 2^-53 |low|, the latter of which is left to the users' relative bounds.
// Source: Cody & Waite 1980.
inline ReducedAngle ReduceModerate(double x)
{
    // Adding 1.5 2^52 rounds to an integer, which then stands in the lowest bits, in two's complement.
    constexpr double shifter = 0x1.8p52;
    const double shifted = x * angleStepsPerRadian + shifter;
    const double k = shifted - shifter;
    const double rest = x - k * angleStepHigh;
    const double middle = k * angleStepMiddle;
    const double high = rest - middle;
    const Pair sum = FastTwoSum(high, ((rest - high) - middle) - k * angleStepLow);
    return {static_cast<int>(BitCast<std::uint64_t>(shifted) % turnSteps), sum.high, sum.low,
            std::fabs(k) * 0x1p-123};
}

// For any finite x of magnitude above 2^-20.
ReducedAngle ReduceLarge(double x);

// For any finite x.high + x.low of magnitude above 2^-20.
ReducedPair ReduceToPair(Pair x);

// For any finite x of magnitude above 2^-20; error of the rest below one ulp of it, while it is above
// 2^-100.
WideReduced ReduceToWide(double x, int limbs);

// pi / 4 times 2^power.
WideNumber QuarterPi(std::int64_t power, int limbs);

} // namespace trelvanix

#endif
