#include "classic/elliptic.h"

#include <cmath>
#include <limits>

#include "classic/conjugate_pairs.h"
#include "classic/edge_preparation.h"
#include "classic/elliptic_degree.h"
#include "classic/state_space_design.h"
#include "classic/state_space_readback.h"
#include "iir/elliptic_prototype.h"
#include "linalg/polynomial.h"
#include "math/elliptic_functions.h"
#include "math/exponential.h"

namespace trelvanix
{
namespace
{

// Where the poles lie off the axis; not-a-number without a discrimination modulus, for attenuations beyond
// the range of doubles.
Complex PoleOffset(int order, double ep, double k1)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    if (k1 == 0.0)
        return {nan, nan};
    const Complex v = InverseSnComplex({0.0 / ep, 1.0 / ep}, k1);
    return Divide({v.imag(), -v.real()}, static_cast<double>(order));
}

} // namespace

AnalogPrototype PairedEllipticPrototype(int order, double rp, double rs)
{
    const bool odd = order % 2 != 0;
    const double Gp = Pow(10.0, rp * -1.0 / 20.0);
    const double ep = std::sqrt(Pow(10.0, rp / 10.0) - 1.0);
    const double es = std::sqrt(Pow(10.0, rs / 10.0) - 1.0);
    const double k1 = ep / es;
    AnalogPrototype prototype =
        EllipticPrototype(order, SelectivityModulus(order, k1), PoleOffset(order, ep, k1));

    // The gain depends on the order of its factors: paired, the real pole at the end.
    PairConjugates(prototype.zeros);
    const std::vector<Complex> realPole(prototype.poles.end() - (odd ? 1 : 0), prototype.poles.end());
    prototype.poles.resize(prototype.poles.size() - realPole.size());
    PairConjugates(prototype.poles);
    prototype.poles.insert(prototype.poles.end(), realPole.begin(), realPole.end());
    prototype.gain = EllipticGain(prototype, odd ? 1.0 : Gp);
    return prototype;
}

void Elliptic(int order, double rp, double rs, double* wn, std::uint32_t filterType, int analog,
              double* a, double* b)
{
    const auto type = static_cast<FilterType>(filterType);
    CheckOrder(order, type);
    const Domain domain = analog != 0 ? Domain::analog : Domain::digital;
    const PreparedEdges edges = PrepareEdges(wn, type, domain);
    const StateSpace model = DesignModel(PairedEllipticPrototype(order, rp, rs), type, edges, domain);
    const auto [zeros, poles, gain] = StateSpaceToZpk(model);
    WriteRealPolynomial(1.0, poles, a);
    WriteRealPolynomial(gain, zeros, b);
}

} // namespace trelvanix
