#include <cmath>

#include "math/sine_kernel.h"
#include "math/tangent_kernel.h"
#include "math/trigonometric.h"
#include "math/wide_trigonometric.h"

namespace trelvanix
{
namespace
{

double AccurateTangent(double x)
{
    const PairAngle angle = PreparePair(Pair{x, 0.0});
    const Pair result = PairTangent(angle);
    if (RoundsSafely(result.high, result.low, pairBound * std::fabs(result.high)))
        return result.high;
    return RoundByWidening([=](int limbs) {
        const WideSineAndCosine both = WideSineAndCosineOf(x, limbs);
        return Divide(both.sine, both.cosine);
    });
}

} // namespace

double Tan(double x)
{
    // x^3 / 3 is less than a quarter of an ulp.
    if (std::fabs(x) < 0x1p-27)
        return x;
    if (!std::isfinite(x))
        return x - x;
    const Estimate result =
        FastTangent(PrepareFast(std::fabs(x) <= largestModerate ? ReduceModerate(x) : ReduceLarge(x)));
    if (RoundsSafely(result)) [[likely]]
        return result.high + result.low;
    return AccurateTangent(x);
}

Pair Tan(Pair x)
{
    // The third power doesn't count, and would underflow.
    if (std::fabs(x.high) < 0x1p-55)
        return x;
    if (!std::isfinite(x.high))
        return {x.high - x.high, 0.0};
    return PairTangent(PreparePair(x));
}

} // namespace trelvanix
