#include "filtering/iir_kernel.h"

#include <utility>

#include "common/instruction_set.h"
#include "common/lanes.h"

// An output waits for the one before it: a product and coefCount - 1 subtractions, each of which needs
// the one before. Nothing can shorten this chain without changing the rounding, so everything else is
// kept off it. The feed-forward sums of a group of outputs come first, one output to a lane, each with k
// increasing from 0.0 as in the plain loop; they don't depend on outputs, so the processor works on the
// sums of the next group while the chain of this one goes on, and likewise on the products of all
// outputs but the newest. The number of coefficients is known to the compiler up to maxKnown, so that no
// loop counter or branch stands in the way.

namespace trelvanix::TRELVANIX_INSTRUCTION_SET
{
namespace
{

constexpr int maxKnown = 17;
constexpr int groupLength = 8; // a multiple of laneCount

// coefCount = 0: as many as coefs says.
template <int coefCount>
void RecurseGroups(const double* __restrict x, const double* __restrict b, const double* __restrict a,
                   int coefs, std::int64_t count, double* __restrict y)
{
    const int m = coefCount > 0 ? coefCount : coefs;
    std::int64_t n = 0;
    double newest = m > 1 && count > 0 ? y[-1] : 0.0;
    for (; n + groupLength <= count; n += groupLength) {
        double feedForward[groupLength];
        for (int i = 0; i < groupLength; i += laneCount) {
            Lanes sum = Broadcast(0.0);
            for (int k = 0; k < m; ++k)
                sum = sum + Load(x + n + i - k) * Broadcast(b[k]);
            Store(feedForward + i, sum);
        }
        for (int i = 0; i < groupLength; ++i) {
            double sum = feedForward[i];
            if (m > 1)
                sum -= newest * a[1];
            for (int k = 2; k < m; ++k)
                sum -= y[n + i - k] * a[k];
            y[n + i] = newest = sum;
        }
    }
    for (; n < count; ++n) {
        double sum = 0.0;
        for (int k = 0; k < m; ++k)
            sum += x[n - k] * b[k];
        for (int k = 1; k < m; ++k)
            sum -= y[n - k] * a[k];
        y[n] = sum;
    }
}

template <int... coefCount>
RecurseKernel* Known(int coefs, std::integer_sequence<int, coefCount...> /*counts*/)
{
    RecurseKernel* const known[] = {RecurseGroups<coefCount>...};
    return known[coefs <= maxKnown ? coefs : 0];
}

void Recurse(const double* x, const double* b, const double* a, int coefCount, std::int64_t count,
             double* y)
{
    Known(coefCount, std::make_integer_sequence<int, maxKnown + 1>())(x, b, a, coefCount, count, y);
}

} // namespace
} // namespace trelvanix::TRELVANIX_INSTRUCTION_SET

template <>
trelvanix::IirKernels trelvanix::CompiledKernels<trelvanix::IirKernels,
                                                 trelvanix::InstructionSet::TRELVANIX_INSTRUCTION_SET>()
{
    return {trelvanix::TRELVANIX_INSTRUCTION_SET::Recurse};
}
