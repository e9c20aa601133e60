#ifndef TRELVANIX_MATH_ARC_TANGENT_KERNEL_H
#define TRELVANIX_MATH_ARC_TANGENT_KERNEL_H

#include <cmath>
#include <cstdint>

#include "common/numbers.h"
#include "math/sine_kernel.h"

namespace trelvanix
{

// The angle of a point with coordinates 0 <= y <= x > 0 is
//
//     atan c + atan d,   d = (y - c x) / (x + c y),   c = k / 64 nearest to y / x,   |d| < 1 / 127,
//
// where atan c comes from a table. Other points by symmetry. Source: Muller 2016.

// c x exactly, for c = k / 64 with k from 0 to 64: seven bits times halves of 26.
constexpr Pair TimesNode(double c, double x)
{
    const Pair halves = SplitInHalves(x);
    const double product = c * x;
    return {product, (c * halves.high - product) + c * halves.low};
}

// Coordinates of a point, neither zero, and its angle in the first half quadrant.
struct HalfQuadrant {
    Pair small;
    Pair large;
};

constexpr HalfQuadrant FoldPoint(Pair y, Pair x)
{
    const Pair height = Abs(y);
    const Pair width = Abs(x);
    return height > width ? HalfQuadrant{width, height} : HalfQuadrant{height, width};
}

inline int NearestNode(const HalfQuadrant& point)
{
    // As in ReduceModerate.
    const double shifted = arcNodes * (point.small.high / point.large.high) + 0x1.8p52;
    return static_cast<int>(BitCast<std::uint64_t>(shifted) % (std::uint64_t{2} * arcNodes));
}

// Magnitude of the angle of (x, y) from that of the folded point, and its error, which sums of pairs with
// multiples of pi / 2 do not enlarge by more than 2^-104: they are above it in magnitude.
constexpr Pair UnfoldAngle(Pair angle, Pair y, Pair x)
{
    if (Abs(y) > Abs(x))
        return x.high > 0.0 ? halfPiPair - angle : halfPiPair + angle;
    return x.high > 0.0 ? angle : piPair - angle;
}

// |angle of (x, y)|, where both coordinates have relative errors below 2^-104, magnitudes from 2^-300 to
// 2^300 and a quotient from 2^-300 to 2^300.
//
// With u = 2^-53, a the angle folded into the first half quadrant and t = atan d - d, |t| < |d|^3 / 3: |d|
// is below 1.01 a. Numerator and denominator are in error by less than 2^-102 of y and of x, and so is d by
// 2^-101 a, its low part included. The low part is below 2 u a, not always small beside d: leaving it out of
// t costs 2 u a d^2. t is in error by 4.5 u |t| from its factors and 0.1 u |d|^3 from the terms left out
// (d^11 / 11). Three sums and that with the bound in RoundsSafely round to u of a magnitude of |t| + 2^-52 a,
// or 2^-52 of the unfolded angle. All is below 6 u a d^2 and 2^-99 of the angle.
inline Estimate FastAngleOf(Pair y, Pair x)
{
    const HalfQuadrant point = FoldPoint(y, x);
    const int k = NearestNode(point);
    const double c = k * (1.0 / arcNodes);
    const Pair large = TimesNode(c, point.large.high);
    const Pair small = TimesNode(c, point.small.high);
    const Pair top = TwoSum(point.small.high, -large.high);
    const Pair bottom = FastTwoSum(point.large.high, small.high);
    const double topLow = (top.low - large.low) + (point.small.low - c * point.large.low);
    const double bottomLow = (bottom.low + small.low) + (point.large.low + c * point.small.low);

    const double d = top.high / bottom.high;
    const Pair product = TwoProduct(d, bottom.high);
    const double rest = ((top.high - product.high) - product.low) + (topLow - d * bottomLow);
    const double low = rest / bottom.high;
    const double square = d * d;
    const double series =
        d * square * (-1.0 / 3.0 + square * (1.0 / 5.0 + square * (-1.0 / 7.0 + square * (1.0 / 9.0))));

    const Pair node = arcTangentTable[static_cast<unsigned>(k)];
    const Pair sum = FastTwoSum(node.high, d);
    const Pair angle = UnfoldAngle(FastTwoSum(sum.high, sum.low + (node.low + (low + series))), y, x);
    return {angle.high, angle.low, 0x1p-50 * sum.high * square + 0x1p-99 * angle.high};
}

// The same with pairs: relative error below 2^-98.
inline Pair PairAngleOf(Pair y, Pair x)
{
    constexpr Pair third = Pair{-1.0, 0.0} / 3.0, fifth = Pair{1.0, 0.0} / 5.0,
                   seventh = Pair{-1.0, 0.0} / 7.0;
    const HalfQuadrant point = FoldPoint(y, x);
    const int k = NearestNode(point);
    const double c = k * (1.0 / arcNodes);
    const Pair d = (point.small - c * point.large) / (point.large + c * point.small);
    const Pair square = d * d;
    // The first of these is in error by less than 2^-108 of 1, the next term of the series is below it.
    const double t = square.high;
    const double ninth =
        1.0 / 9.0 + t * (-1.0 / 11.0 + t * (1.0 / 13.0 + t * (-1.0 / 15.0 + t * (1.0 / 17.0))));
    const Pair series = square * (third + square * (fifth + square * (seventh + t * ninth)));
    const Pair angle = arcTangentTable[static_cast<unsigned>(k)] + (d + d * series);
    return UnfoldAngle(angle, y, x);
}

} // namespace trelvanix

#endif
