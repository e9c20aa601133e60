#include "classic/signal_filters.h"

#include <algorithm>
#include <cstdint>
#include <new>
#include <vector>

#include "common/work_array.h"
#include "filtering/fir_filter.h"
#include "filtering/iir_filter.h"

// The products with the zeros before the signal take place: an infinite coefficient makes not-a-number of
// them.
namespace trelvanix
{

ResultArray Filter(const double* signal, const double* b, const double* a, int signalLength,
                   int coefCount)
{
    return a == nullptr ? FirFilterToSignal(signal, b, signalLength, coefCount)
                        : IirFilterToSignal(signal, b, a, signalLength, coefCount);
}

ResultArray FirFilterToSignal(const double* signal, const double* h, int signalLength, int tapCount)
{
    ResultArray output = NewResultArray(signalLength);
    if (tapCount < 0)
        throw std::bad_array_new_length();
    if (signalLength == 0)
        return output;

    auto rest = NewWorkArray<double>(std::max(tapCount - 1, 0));
    ApplyFir(signal, signalLength, h, tapCount, rest.data(), output.get());
    return output;
}

ResultArray IirFilterToSignal(const double* signal, const double* b, const double* a, int signalLength,
                              int coefCount)
{
    ResultArray output = NewResultArray(signalLength);
    if (coefCount < 0)
        throw std::bad_array_new_length();
    if (signalLength == 0)
        return output;

    const std::int64_t delay = std::max(coefCount - 1, 0);
    const std::int64_t count = delay + std::min<std::int64_t>(delay, signalLength);
    auto inputs = NewWorkArray<double>(count);
    auto outputs = NewWorkArray<double>(count);
    ApplyIir(signal, signalLength, b, a, coefCount, inputs.data(), outputs.data(), output.get());
    return output;
}

} // namespace trelvanix
