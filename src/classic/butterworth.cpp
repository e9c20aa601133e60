#include "classic/butterworth.h"

#include "classic/edge_preparation.h"
#include "classic/state_space_design.h"
#include "common/constants.h"
#include "iir/butterworth_prototype.h"
#include "linalg/polynomial.h"
#include "math/complex_functions.h"
#include "math/exponential.h"
#include "math/trigonometric.h"

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

ZerosAndGain ButterworthZerosGain(const std::vector<Complex>& poles, FilterType filterType, int n,
                                  double Wo)
{
    const Complex one = 1.0;
    const double w = 2.0 * Atan2(Wo, 4.0);
    const std::vector<Complex> zeros = DigitalZeros(static_cast<int>(poles.size()), filterType, n, w);
    switch (filterType) {
    case FilterType::LowPass:
        return {zeros, ProductOver(poles, [=](Complex p) { return one - p; }).real() /
                           Pow(2.0, static_cast<double>(n))};
    case FilterType::HighPass:
        return {zeros, ProductOver(poles, [=](Complex p) { return one + p; }).real() /
                           Pow(2.0, static_cast<double>(n))};
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
    const Domain domain = analog != 0 ? Domain::analog : Domain::digital;
    const PreparedEdges edges = PrepareEdges(wn, type, domain);
    const StateSpace model = DesignModel(ButterworthPrototype(order), type, edges, domain);
    const std::vector<Complex> poles = StatePoles(model);
    const ZerosAndGain numerator = ButterworthZerosGain(poles, type, order, edges.Wo);
    WriteRealPolynomial(1.0, poles, a);
    WriteRealPolynomial(numerator.gain, numerator.zeros, b);
}

} // namespace trelvanix
