#ifndef TRELVANIX_FILTERING_IIR_KERNEL_H
#define TRELVANIX_FILTERING_IIR_KERNEL_H

#include <cstdint>

namespace trelvanix
{

// y[n] = sum over k of x[n - k] b[k] from 0.0, less y[n - k] a[k] for k >= 1 one after the other, k
// increasing in both, for count outputs. The coefCount - 1 elements before x and before y are read;
// y and the inputs don't overlap.
using RecurseKernel = void(const double* x, const double* b, const double* a, int coefCount,
                           std::int64_t count, double* y);

struct IirKernels {
    RecurseKernel* recurse;
};

} // namespace trelvanix

#endif
