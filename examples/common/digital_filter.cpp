#include "digital_filter.h"

DigitalFilter FromTaps(const LibraryArray& taps, int order)
{
    return {{taps.get(), taps.get() + order + 1}, {}};
}

int Order(const DigitalFilter& filter)
{
    return static_cast<int>(filter.b.size()) - 1;
}

int MultiplicationsPerSample(const DigitalFilter& filter)
{
    return Order(filter) + 1 + (filter.a.empty() ? 0 : Order(filter));
}

LibraryArray Apply(const DigitalFilter& filter, const double* signal, int length)
{
    // Without a denominator it is an FIR filter.
    const double* const denominator = filter.a.empty() ? nullptr : filter.a.data();
    return LibraryArray(Filter(signal, filter.b.data(), denominator, length, Order(filter) + 1));
}
