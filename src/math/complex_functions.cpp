#include "math/complex_functions.h"

#include <cmath>

#include "math/exponential.h"
#include "math/trigonometric.h"

namespace trelvanix
{

Complex UnitPhasor(double angle)
{
    const SineAndCosine value = SinAndCos(angle);
    return {value.cosine, value.sine};
}

Complex Sine(Complex z)
{
    const double x = z.real(), y = z.imag();
    return {Sin(x) * Cosh(y), Cos(x) * Sinh(y)};
}

Complex Cosine(Complex z)
{
    const double x = z.real(), y = z.imag();
    return {Cos(x) * Cosh(y), -(Sin(x) * Sinh(y))};
}

Complex SquareRoot(Complex z)
{
    const double x = z.real(), y = z.imag();
    if (x == 0.0 && y == 0.0)
        return {0.0, y};
    const double t = std::sqrt((std::fabs(x) + Hypot(x, y)) * 0.5);
    if (x >= 0.0)
        return {t, y / (2.0 * t)};
    return {std::fabs(y) / (2.0 * t), std::copysign(t, y)};
}

Complex ArcCosine(Complex z)
{
    const double x = z.real(), y = z.imag();
    const Complex p = SquareRoot({1.0 + x, y});
    const Complex m = SquareRoot({1.0 - x, -y});
    return {2.0 * Atan2(m.real(), p.real()), Asinh(p.real() * m.imag() - p.imag() * m.real())};
}

} // namespace trelvanix
