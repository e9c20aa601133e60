#include "classic/chebyshev1.h"

#include "classic/edge_preparation.h"
#include "classic/state_space_design.h"
#include "iir/chebyshev1_prototype.h"
#include "linalg/polynomial.h"
#include "math/exponential.h"

namespace trelvanix
{

ZerosAndGain Cheb1ZerosGain(const std::vector<Complex>& poles, FilterType filterType, int n, double Wo,
                            double rp, double prototypeGain)
{
    ZerosAndGain result = ButterworthZerosGain(poles, filterType, n, Wo);
    if (filterType > FilterType::BandStop)
        result.gain = prototypeGain;
    const double ripple = n % 2 != 0 ? 1.0 : Pow(10.0, -rp / 20.0);
    result.gain *= ripple;
    return result;
}

void Chebyshv1(int order, double rp, double* wn, std::uint32_t filterType, int analog, double* a,
               double* b)
{
    const auto type = static_cast<FilterType>(filterType);
    CheckOrder(order, type);
    const Domain domain = analog != 0 ? Domain::analog : Domain::digital;
    const PreparedEdges edges = PrepareEdges(wn, type, domain);
    AnalogPrototype prototype = Cheb1Prototype(order, rp);
    // The product of the poles, not of their negatives, is what the gain has always been. Filter types 0 .. 3
    // don't depend on it, others have it as their coefficient.
    if (order % 2 != 0)
        prototype.gain = -prototype.gain;
    const StateSpace model = DesignModel(prototype, type, edges, domain);
    const std::vector<Complex> poles = StatePoles(model);
    const ZerosAndGain numerator = Cheb1ZerosGain(poles, type, order, edges.Wo, rp, prototype.gain);
    WriteRealPolynomial(1.0, poles, a);
    WriteRealPolynomial(numerator.gain, numerator.zeros, b);
}

} // namespace trelvanix
