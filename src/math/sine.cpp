#include <cmath>

#include "math/sine_kernel.h"
#include "math/trigonometric.h"
#include "math/wide_trigonometric.h"

namespace trelvanix
{
namespace
{

// k counts steps of pi / 128: the cosine is the sine 64 steps on.
constexpr int sineSteps = 0;
constexpr int cosineSteps = quarterSteps;

// What is left to pairs, once in some hundred calls, and once in 10^13 to wide numbers.
double AccurateSine(double x, int steps)
{
    const Pair result = PairSine(PreparePair(Pair{x, 0.0}), steps);
    if (RoundsSafely(result.high, result.low, pairBound * std::fabs(result.high)))
        return result.high;
    return RoundByWidening([=](int limbs) {
        const WideSineAndCosine both = WideSineAndCosineOf(x, limbs);
        return steps == sineSteps ? both.sine : both.cosine;
    });
}

inline double Rounded(const Estimate& estimate, double x, int steps)
{
    if (RoundsSafely(estimate)) [[likely]]
        return estimate.high + estimate.low;
    return AccurateSine(x, steps);
}

inline double SineOfSteps(double x, int steps)
{
    const ReducedAngle angle = std::fabs(x) <= largestModerate ? ReduceModerate(x) : ReduceLarge(x);
    return Rounded(FastSine(PrepareFast(angle), steps), x, steps);
}

// Below these the next term of the series is less than a quarter of an ulp.
constexpr double smallestSine = 0x1p-26;
constexpr double smallestCosine = 0x1p-27;

} // namespace

double Sin(double x)
{
    if (std::fabs(x) < smallestSine)
        return x;
    if (!std::isfinite(x))
        return x - x;
    return SineOfSteps(x, sineSteps);
}

double Cos(double x)
{
    if (std::fabs(x) < smallestCosine)
        return 1.0;
    if (!std::isfinite(x))
        return x - x;
    return SineOfSteps(x, cosineSteps);
}

SineAndCosine SinAndCos(double x)
{
    if (!(std::fabs(x) >= smallestSine && std::fabs(x) <= largestModerate))
        return {Sin(x), Cos(x)};
    const FastAngle angle = PrepareFast(ReduceModerate(x));
    return {Rounded(FastSine(angle, sineSteps), x, sineSteps),
            Rounded(FastSine(angle, cosineSteps), x, cosineSteps)};
}

Pair Sin(Pair x)
{
    // The third power doesn't count, and would underflow.
    if (std::fabs(x.high) < 0x1p-55)
        return x;
    if (!std::isfinite(x.high))
        return {x.high - x.high, 0.0};
    return PairSine(PreparePair(x), sineSteps);
}

Pair Cos(Pair x)
{
    if (std::fabs(x.high) < 0x1p-55)
        return {1.0, 0.0};
    if (!std::isfinite(x.high))
        return {x.high - x.high, 0.0};
    return PairSine(PreparePair(x), cosineSteps);
}

PairSineAndCosine SinAndCos(Pair x)
{
    if (!(std::fabs(x.high) >= 0x1p-55 && std::isfinite(x.high)))
        return {Sin(x), Cos(x)};
    const PairAngle angle = PreparePair(x);
    return {PairSine(angle, sineSteps), PairSine(angle, cosineSteps)};
}

} // namespace trelvanix
