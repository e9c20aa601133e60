#ifndef TRELVANIX_FIR_REMEZ_KERNEL_H
#define TRELVANIX_FIR_REMEZ_KERNEL_H

namespace trelvanix
{

// Values at xf[0] .. xf[pointCount - 1] of the polynomial with the values y at the nodes x, in barycentric
// form: the sum of c[j] y[j] over the sum of c[j], c[j] = weights[j] / (xf - x[j]), both in increasing j
// from 0.0. At a node itself the quotient is not a number. values may be xf.
using InterpolateKernel = void(const double* x, const double* weights, const double* y, int nodeCount,
                               const double* xf, int pointCount, double* values);

// The weights of that form for the nodes x: the reciprocals of the products of 2 (x[k] - x[j]). The
// factors are multiplied groupCount groups after one another, group l taking the nodes l,
// l + groupCount, l + 2 groupCount, ..., so that large and small factors mix. A factor that is exactly
// zero is left out, whichever node it comes from.
using LagrangeWeightsKernel = void(const double* x, int nodeCount, int groupCount, double* weights);

struct RemezKernels {
    InterpolateKernel* interpolate;
    LagrangeWeightsKernel* lagrangeWeights;
};

} // namespace trelvanix

#endif
