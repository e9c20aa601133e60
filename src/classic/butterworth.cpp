#include "classic/butterworth.h"

#include <cmath>

#include "classic/bilinear.h"
#include "classic/edge_preparation.h"
#include "classic/frequency_transformations.h"
#include "common/constants.h"
#include "linalg/polynomial.h"

namespace trelvanix
{
namespace
{

std::vector<Complex> DigitalZeros(int N, FilterType filterType, int n, double w)
{
    std::vector<Complex> zeros;
    for (int i = 0; i < N; ++i) {
        switch (filterType) {
        case FilterType::LowPass:
            zeros.emplace_back(-1.0);
            break;
        case FilterType::HighPass:
            zeros.emplace_back(1.0);
            break;
        case FilterType::BandPass:
            zeros.emplace_back(i < n ? 1.0 : -1.0);
            break;
        case FilterType::BandStop:
            zeros.push_back(UnitPhasor(i % 2 == 0 ? w : -w));
            break;
        default:
            zeros.emplace_back(0.0);
        }
    }
    return zeros;
}

// The quotient of the two monic polynomials at a point.
double InverseResponse(Complex point, const std::vector<Complex>& poles,
                       const std::vector<Complex>& zeros)
{
    const auto fromPoint = [=](Complex root) { return point - root; };
    return Divide(ProductOver(poles, fromPoint), ProductOver(zeros, fromPoint)).real();
}

} // namespace

AnalogPrototype ButterworthPrototype(int order)
{
    AnalogPrototype prototype = {};
    std::vector<Complex>& poles = prototype.poles;
    for (int m = 1; m <= order / 2; ++m) {
        const Complex pole = UnitPhasor((2.0 * m - 1.0) * pi / (2.0 * order) + halfPi);
        poles.push_back(pole);
        poles.push_back(std::conj(pole));
    }
    if (order % 2 != 0)
        poles.emplace_back(-1.0, 0.0);
    prototype.gain = ProductOver(poles, [](Complex p) { return -p; }).real();
    return prototype;
}

ZerosAndGain ButterworthZerosGain(const std::vector<Complex>& poles, FilterType filterType, int n,
                                  double Wo)
{
    const Complex one = 1.0;
    const double w = 2.0 * std::atan2(Wo, 4.0);
    const std::vector<Complex> zeros = DigitalZeros(static_cast<int>(poles.size()), filterType, n, w);
    switch (filterType) {
    case FilterType::LowPass:
        return {zeros, ProductOver(poles, [=](Complex p) { return one - p; }).real() /
                           std::pow(2.0, static_cast<double>(n))};
    case FilterType::HighPass:
        return {zeros, ProductOver(poles, [=](Complex p) { return one + p; }).real() /
                           std::pow(2.0, static_cast<double>(n))};
    case FilterType::BandPass:
        return {zeros, InverseResponse(UnitPhasor(w), poles, zeros)};
    case FilterType::BandStop:
        return {zeros, InverseResponse(one, poles, zeros)};
    default:
        return {zeros, 0.0};
    }
}

void Butterworth(int order, double* wn, std::uint32_t filterType, int analog, double* a, double* b)
{
    const auto type = static_cast<FilterType>(filterType);
    CheckOrder(order, type);
    const PreparedEdges edges = PrepareEdges(wn, type, analog != 0);
    AnalogPrototype prototype = ButterworthPrototype(order);
    StateSpace model = ZpToStateSpace(prototype);
    TransformLowPass(model, type, edges);
    if (analog == 0)
        BilinearSs(model, 2.0);
    const std::vector<Complex> poles = StatePoles(model);
    const ZerosAndGain numerator = ButterworthZerosGain(poles, type, order, edges.Wo);
    WriteRealPolynomial(1.0, poles, a);
    WriteRealPolynomial(numerator.gain, numerator.zeros, b);
}

} // namespace trelvanix
