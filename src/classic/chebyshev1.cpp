#include "classic/chebyshev1.h"

#include <cmath>
#include <cstddef>

#include "classic/bilinear.h"
#include "classic/edge_preparation.h"
#include "classic/frequency_transformations.h"
#include "common/constants.h"
#include "linalg/polynomial.h"

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
        poles.emplace_back(std::sinh(mu) * re, std::cosh(mu) * im);
        ++mirrored;
    }
    return poles;
}

AnalogPrototype Cheb1Prototype(int order, double rp)
{
    const double eps = std::sqrt(std::pow(10.0, 0.1 * rp) - 1.0);
    const double mu = std::asinh(1.0 / eps) / order;
    AnalogPrototype prototype = {{}, EllipsePoles(order, mu), 1.0};
    prototype.gain = ProductOver(prototype.poles, [](Complex p) { return p; }).real();
    if (order % 2 == 0)
        prototype.gain /= std::sqrt(std::pow(eps, 2.0) + 1.0);
    return prototype;
}

ZerosAndGain Cheb1ZerosGain(const std::vector<Complex>& poles, FilterType filterType, int n, double Wo,
                            double rp, double prototypeGain)
{
    ZerosAndGain result = ButterworthZerosGain(poles, filterType, n, Wo);
    if (filterType > FilterType::BandStop)
        result.gain = prototypeGain;
    const double ripple = n % 2 != 0 ? 1.0 : std::pow(10.0, -rp / 20.0);
    result.gain *= ripple;
    return result;
}

void Chebyshv1(int order, double rp, double* wn, std::uint32_t filterType, int analog, double* a,
               double* b)
{
    const auto type = static_cast<FilterType>(filterType);
    CheckOrder(order, type);
    const PreparedEdges edges = PrepareEdges(wn, type, analog != 0);
    AnalogPrototype prototype = Cheb1Prototype(order, rp);
    StateSpace model = ZpToStateSpace(prototype);
    TransformLowPass(model, type, edges);
    if (analog == 0)
        BilinearSs(model, 2.0);
    const std::vector<Complex> poles = StatePoles(model);
    const ZerosAndGain numerator = Cheb1ZerosGain(poles, type, order, edges.Wo, rp, prototype.gain);
    WriteRealPolynomial(1.0, poles, a);
    WriteRealPolynomial(numerator.gain, numerator.zeros, b);
}

} // namespace trelvanix
