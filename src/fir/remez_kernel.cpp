// Interpolation as the exchange algorithm needs it, many points at a time and many nodes at a time.
//
// A value is two sums over all nodes, and its time is that of one division for each term: a division of
// vectors takes hardly longer than one of two doubles. So every lane holds a point (a node, for the
// weights) of its own and adds (multiplies) its terms in their order; the bits are those of one point
// after another. One vector at a time keeps the divider busy, because the sums are shorter than the
// divisions. The last vector is filled up with zeros whose results are dropped.
#include "fir/remez_kernel.h"

#include "common/instruction_set.h"
#include "common/lanes.h"

namespace trelvanix::TRELVANIX_INSTRUCTION_SET
{
namespace
{

void Interpolate(const double* x, const double* weights, const double* y, int nodeCount,
                 const double* xf, int pointCount, double* values)
{
    for (int i = 0; i < pointCount; i += laneCount) {
        const Lanes point = LoadFirst(xf + i, pointCount - i);
        Lanes numerator = Broadcast(0.0);
        Lanes denominator = Broadcast(0.0);
        for (int j = 0; j < nodeCount; ++j) {
            const Lanes c = Broadcast(weights[j]) / (point - Broadcast(x[j]));
            numerator = numerator + c * Broadcast(y[j]);
            denominator = denominator + c;
        }
        StoreFirst(values + i, pointCount - i, numerator / denominator);
    }
}

void LagrangeWeights(const double* x, int nodeCount, int groupCount, double* weights)
{
    const Lanes one = Broadcast(1.0);
    for (int k = 0; k < nodeCount; k += laneCount) {
        const Lanes node = LoadFirst(x + k, nodeCount - k);
        Lanes q = one;
        for (int l = 0; l < groupCount; ++l) {
            Lanes product = one;
            for (int j = l; j < nodeCount; j += groupCount) {
                const Lanes factor = Broadcast(2.0) * (node - Broadcast(x[j]));
                product = product * ReplaceZeros(factor, one); // times one: left out
            }
            q = q * product;
        }
        StoreFirst(weights + k, nodeCount - k, one / q);
    }
}

} // namespace
} // namespace trelvanix::TRELVANIX_INSTRUCTION_SET

template <>
trelvanix::RemezKernels
trelvanix::CompiledKernels<trelvanix::RemezKernels,
                           trelvanix::InstructionSet::TRELVANIX_INSTRUCTION_SET>()
{
    using namespace trelvanix::TRELVANIX_INSTRUCTION_SET;
    return {Interpolate, LagrangeWeights};
}
