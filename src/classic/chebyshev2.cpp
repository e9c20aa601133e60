#include "classic/chebyshev2.h"

#include "classic/edge_preparation.h"
#include "classic/state_space_design.h"
#include "classic/state_space_readback.h"
#include "iir/chebyshev2_prototype.h"
#include "linalg/polynomial.h"

namespace trelvanix
{

void Chebyshv2(int order, double rs, double* wn, std::uint32_t filterType, int analog, double* a,
               double* b)
{
    const auto type = static_cast<FilterType>(filterType);
    CheckOrder(order, type);
    const Domain domain = analog != 0 ? Domain::analog : Domain::digital;
    const PreparedEdges edges = PrepareEdges(wn, type, domain);
    const StateSpace model = DesignModel(Cheb2Prototype(order, rs), type, edges, domain);
    // The state matrix gives better poles than the denominator does.
    const std::vector<Complex> poles = StatePoles(model);
    const TransferFunction tf = StateSpaceToTf(model);
    WriteRealPolynomial(1.0, poles, a);
    WriteRealPolynomial(TfGain(tf), TfZeros(tf), b);
}

} // namespace trelvanix
