#ifndef TRELVANIX_COMMON_COMPLEX_ARITHMETIC_H
#define TRELVANIX_COMMON_COMPLEX_ARITHMETIC_H

#include <cmath>
#include <complex>
#include <cstdint>
#include <limits>

namespace trelvanix
{

using Complex = std::complex<double>;

// (ac - bd) + j(ad + bc). The operator of std::complex is free to repair infinities and to choose its
// order; this one gives the same bits everywhere.
inline Complex Multiply(Complex x, Complex y)
{
    return {x.real() * y.real() - x.imag() * y.imag(), x.real() * y.imag() + x.imag() * y.real()};
}

// x / y, scaled by the larger component of y, so that nothing between overflows while the quotient is
// in range. A divisor that is zero or not finite gives not-a-number. Source: Smith 1962.
inline Complex Divide(Complex x, Complex y)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    if (std::fabs(y.real()) >= std::fabs(y.imag())) {
        const double ratio = y.imag() / y.real();
        const double divisor = y.real() + y.imag() * ratio;
        if (!std::isfinite(divisor))
            return {nan, nan};
        return {(x.real() + x.imag() * ratio) / divisor, (x.imag() - x.real() * ratio) / divisor};
    }
    const double ratio = y.real() / y.imag();
    const double divisor = y.real() * ratio + y.imag();
    if (!std::isfinite(divisor))
        return {nan, nan};
    return {(x.real() * ratio + x.imag()) / divisor, (x.imag() * ratio - x.real()) / divisor};
}

// x^2 as one multiplication.
inline Complex Square(Complex x)
{
    return Multiply(x, x);
}

// Element k of a complex array kept as pairs of doubles.
inline Complex LoadComplex(const double* array, std::int64_t k)
{
    return {array[2 * k], array[2 * k + 1]};
}

inline void StoreComplex(double* array, std::int64_t k, Complex value)
{
    array[2 * k] = value.real();
    array[2 * k + 1] = value.imag();
}

} // namespace trelvanix

#endif
