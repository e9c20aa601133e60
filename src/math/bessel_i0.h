#ifndef TRELVANIX_MATH_BESSEL_I0_H
#define TRELVANIX_MATH_BESSEL_I0_H

#include <array>

namespace trelvanix
{

// Modified Bessel function of the first kind and order zero, for |x| <= 12: the first 25 terms of its power
// series in increasing order, of which what is left out is below one rounding. An object holds what the
// terms are divided by, for a caller that needs many values.
// Source: Abramowitz & Stegun 1964, 9.6.12.
class BesselI0
{
public:
    BesselI0();

    double operator()(double x) const;

private:
    static constexpr int termCount = 25;
    std::array<double, termCount> powerOfFour, squaredFactorial; // 4^k and (k!)^2
};

} // namespace trelvanix

#endif
