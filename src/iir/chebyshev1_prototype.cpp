#include "iir/chebyshev1_prototype.h"

#include <cmath>
#include <cstddef>

#include "common/constants.h"
#include "linalg/polynomial.h"
#include "math/complex_functions.h"
#include "math/exponential.h"

namespace trelvanix
{

std::vector<Complex> EllipsePoles(int order, double mu)
{
    std::vector<Complex> directions;
    directions.reserve(static_cast<std::size_t>(order));
    for (int i = 0; i < order; ++i)
        directions.push_back(UnitPhasor((2.0 * i + 1.0) * pi / (2.0 * order) + halfPi));

    std::vector<Complex> poles;
    poles.reserve(directions.size());
    auto mirrored = directions.rbegin();
    for (const Complex direction : directions) {
        const double re = (direction.real() + mirrored->real()) * 0.5;
        const double im = (direction.imag() - mirrored->imag()) * 0.5;
        poles.emplace_back(Sinh(mu) * re, Cosh(mu) * im);
        ++mirrored;
    }
    return poles;
}

AnalogPrototype Cheb1Prototype(int order, double rp)
{
    const double eps = std::sqrt(Pow(10.0, 0.1 * rp) - 1.0);
    const double mu = Asinh(1.0 / eps) / order;
    AnalogPrototype prototype = {{}, EllipsePoles(order, mu), 1.0};
    prototype.gain = ProductOver(prototype.poles, [](Complex p) { return -p; }).real();
    if (order % 2 == 0)
        prototype.gain /= std::sqrt(Pow(eps, 2.0) + 1.0);
    return prototype;
}

} // namespace trelvanix
