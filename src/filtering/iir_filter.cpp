#include "filtering/iir_filter.h"

#include <algorithm>
#include <cstdint>
#include <new>
#include <vector>

#include "common/growable_array.h"

namespace trelvanix
{
namespace
{

// y[n] = sum of b[k] x[n - k] from 0.0, less a[k] y[n - k] for k >= 1 one after the other, k
// increasing. The coefCount - 1 elements before x and before y are read.
void Recurse(const double* x, const double* b, const double* a, int coefCount, std::int64_t count,
             double* y)
{
    for (std::int64_t n = 0; n < count; ++n) {
        double sum = 0.0;
        for (int k = 0; k < coefCount; ++k)
            sum += x[n - k] * b[k];
        for (int k = 1; k < coefCount; ++k)
            sum -= y[n - k] * a[k];
        y[n] = sum;
    }
}

} // namespace

ResultArray IirFilterToSignal(const double* signal, const double* b, const double* a, int signalLength,
                              int coefCount)
{
    ResultArray output = NewResultArray(signalLength);
    if (coefCount < 0)
        throw std::bad_array_new_length();

    // As in the FIR filter: the products with the zeros before the signal take place, so the first
    // outputs run over copies of both sequences with the zeros in front.
    const int delay = std::max(coefCount - 1, 0);
    const int filling = std::min(delay, signalLength);
    if (filling > 0) {
        auto x = NewGrowableArray<double>(std::int64_t{delay} + filling);
        auto y = NewGrowableArray<double>(std::int64_t{delay} + filling);
        std::copy_n(signal, filling, x.data() + delay);
        Recurse(x.data() + delay, b, a, coefCount, filling, y.data() + delay);
        std::copy_n(y.data() + delay, filling, output.get());
    }
    Recurse(signal + filling, b, a, coefCount, signalLength - filling, output.get() + filling);
    return output;
}

} // namespace trelvanix
