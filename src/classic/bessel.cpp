#include "classic/bessel.h"

#include <algorithm>

#include "classic/edge_preparation.h"
#include "classic/frequency_transformations.h"
#include "classic/state_space_readback.h"
#include "common/work_array.h"
#include "linalg/polynomial.h"

namespace trelvanix
{
namespace
{

constexpr int largestTableOrder = 25;

// Real and imaginary part of every pole, the rows for order 1 .. 25 one after the other.
constexpr double besselPoleTable[][2] = {
#include "iir/bessel_poles.inc"
};

} // namespace

AnalogPrototype BesselPrototype(int order)
{
    AnalogPrototype prototype = {{}, NewWorkArray<Complex>(order), 1.0};
    if (order > largestTableOrder)
        return prototype;
    const auto* row = besselPoleTable + order * (order - 1) / 2;
    for (Complex& pole : prototype.poles) {
        pole = {(*row)[0], (*row)[1]};
        ++row;
    }
    return prototype;
}

void Bessel(int order, double* wn, int filterType, double* a, double* b)
{
    const auto type = static_cast<FilterType>(filterType);
    CheckOrder(order, type);
    const PreparedEdges edges = PrepareAnalogEdges(wn, type);
    AnalogPrototype prototype = BesselPrototype(order);
    StateSpace model = ZpToStateSpace(prototype);
    TransformLowPass(model, type, edges);
    const TransferFunction tf = StateSpaceToTf(model);
    WriteRealPolynomial(1.0, TfPoles(tf), a);
    // A single constant term for every type: the zeros of a highpass or of a band type stay out.
    if (b != nullptr) {
        std::fill_n(b, model.order, 0.0);
        b[model.order] = TfGain(tf);
    }
}

} // namespace trelvanix
