#include <cmath>
#include <limits>

#include "math/sine_kernel.h"
#include "math/tangent_kernel.h"
#include "math/trigonometric.h"
#include "math/wide_trigonometric.h"

namespace trelvanix
{
namespace
{

// pi x = index pi / 128 + pi rest, exactly.
struct Multiple {
    int index;
    double rest;
};

// x less its nearest even integer, which is exact: both are multiples of the ulp of x, and the difference
// is the smaller one.
double WithoutTurns(double x)
{
    // Every double of this size is an even integer.
    if (std::fabs(x) >= 0x1p53)
        return 0.0;
    return x - 2.0 * std::rint(0.5 * x);
}

Multiple Reduce(double x)
{
    const double turns = WithoutTurns(x);
    const double index = std::rint(128.0 * turns);
    return {static_cast<int>(index), turns - index * (1.0 / 128.0)};
}

// The product with pi; the low part's roundings are below 2^-104 of the high part.
ReducedAngle TimesPi(Multiple x)
{
    const Pair product = TwoProduct(x.rest, piPair.high);
    const Pair sum = FastTwoSum(product.high, product.low + x.rest * piPair.low);
    return {x.index, sum.high, sum.low, 0x1p-103 * std::fabs(sum.high)};
}

Pair WithoutTurns(Pair x)
{
    return TwoSum(WithoutTurns(x.high), WithoutTurns(x.low));
}

// Of the angle pi times what WithoutTurns left.
PairAngle PreparePairOfMultiple(Pair turns)
{
    const double index = std::rint(128.0 * turns.high);
    const Pair rest = TwoSum(turns.high - index * (1.0 / 128.0), turns.low);
    return PreparePair(ReducedPair{static_cast<int>(index), rest * piPair});
}

// For the smallest arguments, whose parts would be subnormal: pi x, and x^3 doesn't count.
constexpr double smallestMultiple = 0x1p-900;

double TimesPiAlone(double x)
{
    if (x == 0.0)
        return x;
    return RoundByWidening([=](int limbs) { return Multiply(ToWide(x, limbs), QuarterPi(2, limbs)); });
}

WideSineAndCosine WideOfMultiple(double x, int limbs)
{
    const double turns = WithoutTurns(x);
    const double quarters = std::rint(2.0 * turns);
    const WideNumber rest = ToWide(turns - 0.5 * quarters, limbs);
    return WideSineAndCosineOf(static_cast<int>(quarters), Multiply(rest, QuarterPi(2, limbs)));
}

double SineOfMultiple(double x, int steps)
{
    const Multiple multiple = Reduce(x);
    const Estimate result = FastSine(PrepareFast(TimesPi(multiple)), steps);
    if (RoundsSafely(result)) [[likely]]
        return result.high + result.low;
    const Pair accurate = PairSine(PreparePairOfMultiple(Pair{WithoutTurns(x), 0.0}), steps);
    if (RoundsSafely(accurate.high, accurate.low, pairBound * std::fabs(accurate.high)))
        return accurate.high;
    return RoundByWidening([=](int limbs) {
        const WideSineAndCosine both = WideOfMultiple(x, limbs);
        return steps == 0 ? both.sine : both.cosine;
    });
}

// Whether 2 x is an integer. Then sine and cosine are -1, 0 or 1; for all other doubles they are
// irrational (Niven 1956), and so is the tangent but for the odd multiples of 1/4.
bool IsHalfInteger(double x)
{
    return 2.0 * x == std::rint(2.0 * x);
}

// Evaluates where the argument is neither half an integer nor infinite; there takes the double function.
template <class Exact, class Evaluate>
Pair OfMultiple(Pair x, const Exact& exact, const Evaluate& evaluate)
{
    if (!std::isfinite(x.high))
        return {x.high - x.high, 0.0};
    const Pair turns = WithoutTurns(x);
    if (turns.low == 0.0 && IsHalfInteger(turns.high))
        return {exact(x.low == 0.0 ? x.high : turns.high), 0.0};
    return evaluate(PreparePairOfMultiple(turns));
}

} // namespace

double SinPi(double x)
{
    if (!std::isfinite(x))
        return x - x;
    if (IsHalfInteger(x)) {
        const double turns = WithoutTurns(x);
        return std::fabs(turns) == 0.5 ? 2.0 * turns : std::copysign(0.0, x);
    }
    return std::fabs(x) < smallestMultiple ? TimesPiAlone(x) : SineOfMultiple(x, 0);
}

double CosPi(double x)
{
    // (pi x)^2 / 2 is less than a quarter of an ulp.
    if (std::fabs(x) < 0x1p-29)
        return 1.0;
    if (!std::isfinite(x))
        return x - x;
    if (IsHalfInteger(x)) {
        const double turns = std::fabs(WithoutTurns(x));
        return turns == 0.5 ? 0.0 : 1.0 - 2.0 * turns;
    }
    return SineOfMultiple(x, quarterSteps);
}

double TanPi(double x)
{
    if (!std::isfinite(x))
        return x - x;
    const double turns = WithoutTurns(x);
    if (IsHalfInteger(x)) {
        if (std::fabs(turns) == 0.5)
            return std::copysign(std::numeric_limits<double>::infinity(), turns);
        return turns == 0.0 ? std::copysign(0.0, x) : std::copysign(0.0, -x);
    }
    if (4.0 * x == std::rint(4.0 * x))
        return (std::fabs(turns) == 0.25) == (turns > 0.0) ? 1.0 : -1.0;
    if (std::fabs(x) < smallestMultiple)
        return TimesPiAlone(x);
    const Multiple multiple = Reduce(x);
    const Estimate result = FastTangent(PrepareFast(TimesPi(multiple)));
    if (RoundsSafely(result)) [[likely]]
        return result.high + result.low;
    const Pair accurate = PairTangent(PreparePairOfMultiple(Pair{turns, 0.0}));
    if (RoundsSafely(accurate.high, accurate.low, pairBound * std::fabs(accurate.high)))
        return accurate.high;
    return RoundByWidening([=](int limbs) {
        const WideSineAndCosine both = WideOfMultiple(x, limbs);
        return Divide(both.sine, both.cosine);
    });
}

Pair SinPi(Pair x)
{
    return OfMultiple(
        x, [](double exact) { return SinPi(exact); },
        [](const PairAngle& angle) { return PairSine(angle, 0); });
}

Pair CosPi(Pair x)
{
    return OfMultiple(
        x, [](double exact) { return CosPi(exact); },
        [](const PairAngle& angle) { return PairSine(angle, quarterSteps); });
}

Pair TanPi(Pair x)
{
    return OfMultiple(
        x, [](double exact) { return TanPi(exact); },
        [](const PairAngle& angle) { return PairTangent(angle); });
}

} // namespace trelvanix
