#include "classic/chebyshev2.h"

#include <cmath>

#include "classic/bilinear.h"
#include "classic/chebyshev1.h"
#include "classic/edge_preparation.h"
#include "classic/frequency_transformations.h"
#include "classic/state_space_readback.h"
#include "common/constants.h"
#include "linalg/polynomial.h"

namespace trelvanix
{
namespace
{

// j / cos(v pi / 2n) for the odd v below 2n, but for v = n, whose zero lies at infinity; in the order
// first, last, second, last but one, ...: v and 2n - v are mirror images.
std::vector<Complex> ImaginaryZeros(int order)
{
    const Complex j(0.0, 1.0);
    const auto zeroAt = [=](double v) { return Divide(j, std::cos(v * pi / (2.0 * order))); };
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
    const double delta = 1.0 / std::sqrt(std::pow(10.0, 0.1 * rs) - 1.0);
    const double mu = std::asinh(1.0 / delta) / order;
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

void Chebyshv2(int order, double rs, double* wn, std::uint32_t filterType, int analog, double* a,
               double* b)
{
    const auto type = static_cast<FilterType>(filterType);
    CheckOrder(order, type);
    const PreparedEdges edges = PrepareEdges(wn, type, analog != 0);
    AnalogPrototype prototype = Cheb2Prototype(order, rs);
    StateSpace model = ZpToStateSpace(prototype);
    TransformLowPass(model, type, edges);
    if (analog == 0)
        BilinearSs(model, 2.0);
    // The state matrix gives better poles than the denominator does.
    const std::vector<Complex> poles = StatePoles(model);
    const TransferFunction tf = StateSpaceToTf(model);
    WriteRealPolynomial(1.0, poles, a);
    WriteRealPolynomial(TfGain(tf), TfZeros(tf), b);
}

} // namespace trelvanix
