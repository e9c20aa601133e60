#include "iir/chebyshev2_prototype.h"

#include <cmath>

#include "common/constants.h"
#include "iir/chebyshev1_prototype.h"
#include "linalg/polynomial.h"
#include "math/exponential.h"
#include "math/trigonometric.h"

namespace trelvanix
{
namespace
{

// j / cos(v pi / 2n) for the odd v below 2n, but for v = n, whose zero lies at infinity; in the order
// first, last, second, last but one, ...: v and 2n - v are mirror images.
std::vector<Complex> ImaginaryZeros(int order)
{
    const Complex j(0.0, 1.0);
    const auto zeroAt = [=](double v) { return Divide(j, Cos(v * pi / (2.0 * order))); };
    std::vector<Complex> zeros;
    for (int i = 0; i < order / 2; ++i) {
        const double v = 2.0 * i + 1.0;
        zeros.push_back(zeroAt(v));
        zeros.push_back(zeroAt(2.0 * order - v));
    }
    return zeros;
}

} // namespace

AnalogPrototype Cheb2Prototype(int order, double rs)
{
    const Complex one = 1.0;
    const double delta = 1.0 / std::sqrt(Pow(10.0, 0.1 * rs) - 1.0);
    const double mu = Asinh(1.0 / delta) / order;
    AnalogPrototype prototype = {ImaginaryZeros(order), EllipsePoles(order, mu), 1.0};
    for (Complex& pole : prototype.poles)
        pole = Divide(one, pole);

    const auto negative = [](Complex value) { return -value; };
    Complex gain = ProductOver(prototype.poles, negative);
    if (!prototype.zeros.empty())
        gain = Divide(gain, ProductOver(prototype.zeros, negative));
    prototype.gain = gain.real();
    return prototype;
}

} // namespace trelvanix
