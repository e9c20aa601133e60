#ifndef TRELVANIX_MATH_SINE_KERNEL_H
#define TRELVANIX_MATH_SINE_KERNEL_H

#include <cmath>

#include "math/argument_reduction.h"
#include "math/pair.h"
#include "math/trigonometric_tables.h"

namespace trelvanix
{

// The sine of an angle a = k pi / 128 + r, |r| < 2^-6.3, is
//
//     sin a = S + (S (cos r - 1) + C sin r),   S = sin(k pi / 128), C = sin((k + 64) pi / 128),
//
// and its cosine is the sine a quarter turn on. S and C come from a table, the functions of r from their
// Taylor series. Sources: Gal & Bachelis 1991 (tables); Muller 2016.

constexpr const SineEntry& SineEntryAt(int k)
{
    return sineTable[static_cast<unsigned>(k) % turnSteps];
}

// A sum of two doubles that is in error by at most bound.
struct Estimate {
    double high;
    double low;
    double bound;
};

constexpr bool RoundsSafely(const Estimate& x)
{
    return RoundsSafely(x.high, x.low, x.bound);
}

// What sine and cosine of one reduced angle have in common.
struct FastAngle {
    int index;
    double high;   // of r
    Pair halves;   // of high
    double sine;   // sin r - high
    double cosine; // cos r - 1
    double series; // bound of the relative error of FastSine, but for the reduction
    double error;  // bound of the absolute error of r
};

// With u = 2^-53: the square is in error by u r^2 from its rounding and by 2 u r^2 from leaving out low,
// the bracket of the cosine by u / 4, which with the product's rounding makes 4.6 u r^2 / 2. The sine's
// error is below 1.7 u |r|^3: its factors and its sum with low 5.5 u |r|^3 / 6, low's own square and
// product u |r|^3 / 2, the terms left out 0.2 u |r|^3.
inline FastAngle PrepareFast(const ReducedAngle& angle)
{
    const double r = angle.high;
    const double square = r * r;
    const double sine = r * square * (-1.0 / 6.0 + square * (1.0 / 120.0 + square * (-1.0 / 5040.0)));
    const double cosine =
        square * (-0.5 + square * (1.0 / 24.0 + square * (-1.0 / 720.0 + square * (1.0 / 40320.0))));
    return {angle.index, r, SplitInHalves(r), angle.low + sine, cosine, square * 0x1p-50 + 0x1p-72,
            angle.error};
}

// Sine of the angle index + k steps. The product of the brief part of C and the upper half of r is exact,
// 27 and 26 bits, and so is its sum with the brief part of S, as high and low: |S| is 0 or above twice
// |r|. What is added to low is in error, u = 2^-53, by
//     S (cos r - 1)            4.6 u r^2 / 2 |S|, and u r^2 / 2 |S| from its own rounding
//     C (sin r - high)         1.7 u |r|^3, and u |r|^3 / 6
//     two sums and the sum with the bound in RoundsSafely, each of a magnitude below
//     r^2 / 2 |S| + |r|^3 / 6 + 2^-26 (|S| + |r|):
//                              1.5 u r^2 |S| + 0.5 u |r|^3 + 2^-77 (|S| + |r|)
//     the table and its sums   2^-79 (|S| + |r|)
// together below (8 u r^2 + 2^-72) (|S| + |r|), where |S| is its brief part to within 2^-27.
inline Estimate FastSine(const FastAngle& angle, int k)
{
    const SineEntry& s = SineEntryAt(angle.index + k);
    const SineEntry& c = SineEntryAt(angle.index + k + quarterSteps);
    const Pair sum = FastTwoSum(s.brief, c.brief * angle.halves.high);
    const double series = s.nearest * angle.cosine + c.nearest * angle.sine;
    const double table = s.rest + (c.brief * angle.halves.low + c.rest * angle.high);
    return {sum.high, sum.low + (table + series),
            (std::fabs(s.brief) + std::fabs(angle.high)) * angle.series + angle.error};
}

// The same with pairs.
struct PairAngle {
    int index;
    Pair sine;   // sin r
    Pair cosine; // cos r - 1
};

inline PairAngle PreparePair(const ReducedPair& angle)
{
    constexpr Pair sine3 = Pair{-1.0, 0.0} / 6.0, sine5 = Pair{1.0, 0.0} / 120.0;
    constexpr Pair cosine4 = Pair{1.0, 0.0} / 24.0, cosine6 = Pair{-1.0, 0.0} / 720.0;
    const Pair r = angle.rest;
    const Pair square = r * r;
    // Terms beyond these are below 2^-110 of the sums, the coefficients that are doubles in error by less
    // than 2^-104.
    const double x = square.high;
    const double sine7 = -1.0 / 5040.0 + x * (1.0 / 362880.0 + x * (-1.0 / 39916800.0));
    const double cosine8 = 1.0 / 40320.0 + x * (-1.0 / 3628800.0 + x * (1.0 / 479001600.0));
    const Pair sine = square * (sine3 + square * (sine5 + x * sine7));
    const Pair cosine = square * (-0.5 + square * (cosine4 + square * (cosine6 + x * cosine8)));
    return {angle.index, r + r * sine, cosine};
}

// Relative error below 2^-98.
inline Pair PairSine(const PairAngle& angle, int k)
{
    const SineEntry& s = SineEntryAt(angle.index + k);
    const SineEntry& c = SineEntryAt(angle.index + k + quarterSteps);
    const Pair sine = FastTwoSum(s.brief, s.rest) + s.tail;
    const Pair cosine = FastTwoSum(c.brief, c.rest) + c.tail;
    return sine + (cosine * angle.sine + sine * angle.cosine);
}

// Bound of the relative error of the pair functions of the trigonometric family, as the rounding tests
// take it.
inline constexpr double pairBound = 0x1p-97;

// The angle x without reduction where it is small, so that nothing of it is lost.
inline PairAngle PreparePair(Pair x)
{
    return std::fabs(x.high) < 0x1p-7 ? PreparePair(ReducedPair{0, x}) : PreparePair(ReduceToPair(x));
}

} // namespace trelvanix

#endif
