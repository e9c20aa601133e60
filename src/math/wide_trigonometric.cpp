#include "math/wide_trigonometric.h"

#include <cmath>

#include "math/argument_reduction.h"

namespace trelvanix
{
namespace
{

// The sum of term (-1)^k x^(2k) first! / (first + 2 k)!, while its terms count.
WideNumber AlternatingSum(WideNumber term, const WideNumber& square, std::uint32_t first)
{
    WideNumber sum = term;
    for (std::uint32_t n = first + 1; !IsZero(term); n += 2) {
        term = Negate(Divide(Multiply(term, square), n * (n + 1)));
        if (term.exponent < UlpExponent(sum))
            break;
        sum = Add(sum, term);
    }
    return sum;
}

} // namespace

WideSineAndCosine WideSineAndCosineOf(int quarter, const WideNumber& rest)
{
    const WideNumber square = Multiply(rest, rest);
    const WideNumber sine = AlternatingSum(rest, square, 1);
    const WideNumber cosine = AlternatingSum(ToWide(1.0, rest.limbs), square, 0);
    switch (quarter & 3) {
    case 0:
        return {sine, cosine};
    case 1:
        return {cosine, Negate(sine)};
    case 2:
        return {Negate(sine), Negate(cosine)};
    default:
        return {Negate(cosine), sine};
    }
}

WideSineAndCosine WideSineAndCosineOf(double x, int limbs)
{
    if (std::fabs(x) < 0.75)
        return WideSineAndCosineOf(0, ToWide(x, limbs));
    const WideReduced reduced = ReduceToWide(x, limbs);
    return WideSineAndCosineOf(reduced.quarter, reduced.rest);
}

// With the sine s and cosine c of the estimate, (y c - x s) / (x c + y s) is the tangent of the estimate's
// error: two or three terms of the arc tangent's series correct it.
WideNumber WideAngle(const WideNumber& y, const WideNumber& x, double estimate)
{
    const auto [s, c] = WideSineAndCosineOf(estimate, y.limbs);
    const WideNumber tangent =
        Divide(Subtract(Multiply(y, c), Multiply(x, s)), Add(Multiply(x, c), Multiply(y, s)));
    const WideNumber square = Multiply(tangent, tangent);
    WideNumber power = tangent;
    WideNumber sum = tangent;
    for (std::uint32_t n = 3; !IsZero(power); n += 2) {
        power = Negate(Multiply(power, square));
        if (power.exponent < UlpExponent(sum))
            break;
        sum = Add(sum, Divide(power, n));
    }
    return Add(ToWide(estimate, y.limbs), sum);
}

} // namespace trelvanix
