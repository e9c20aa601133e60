#ifndef TRELVANIX_MATH_WIDE_TRIGONOMETRIC_H
#define TRELVANIX_MATH_WIDE_TRIGONOMETRIC_H

#include <cstdint>

#include "math/wide_number.h"

namespace trelvanix
{

// Sine and cosine to any precision, for the last phase of the trigonometric functions. Errors stay below
// 2^wideErrorBits ulps.
inline constexpr int wideErrorBits = 10;

struct WideSineAndCosine {
    WideNumber sine;
    WideNumber cosine;
};

// Of any finite x.
WideSineAndCosine WideSineAndCosineOf(double x, int limbs);

// Of index pi / 2 + rest, |rest| <= 0.8.
WideSineAndCosine WideSineAndCosineOf(int quarter, const WideNumber& rest);

// The angle of the point (x, y), of which estimate is within 2^-40 of its magnitude.
WideNumber WideAngle(const WideNumber& y, const WideNumber& x, double estimate);

// The double nearest to the number that evaluate(limbs) gives with an error below 2^wideErrorBits ulps,
// for numbers that aren't halfway between doubles. Evaluates with more limbs until the result is certain;
// no argument of these functions needs more than the first. (A number beyond the last precision, closer
// than 2^-700 to a midpoint, would be rounded from the value found.)
template <class Evaluate>
double RoundByWidening(const Evaluate& evaluate)
{
    for (const int limbs : {8, 14}) {
        const WideNumber value = evaluate(limbs);
        if (const auto rounded =
                RoundToDouble(value, value.exponent - std::int64_t{32} * limbs + wideErrorBits))
            return *rounded;
    }
    return ToDouble(evaluate(24));
}

} // namespace trelvanix

#endif
