// The smallest host in C++: designs a low-pass filter, filters a step that comes back down, prints
// both.
//
// usage: first_filter [EDGE]
//
// EDGE is a fraction of the Nyquist frequency, 0.3 unless given.
#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>

#include "trelvanix.h"

namespace
{

struct ReleaseToLibrary {
    void operator()(double* array) const noexcept
    {
        ReleaseDoubleArray(array);
    }
};
using LibraryArray = std::unique_ptr<double[], ReleaseToLibrary>;

void FilterStep(double edge)
{
    constexpr int order = 8, lowPass = 0, hamming = 2;
    constexpr double unused = 0.5; // a low-pass has one edge, but the second one is range-checked too
    constexpr int sampleCount = 20;
    const std::array<double, sampleCount> signal{1, 1, 1, 1, 1, 1, 1, 1, 1, 1};

    const LibraryArray taps(CreateFirByWindow(order, lowPass, hamming, edge, unused));
    const LibraryArray filtered(Filter(signal.data(), taps.get(), nullptr, sampleCount, order + 1));

    int n = 0;
    for (const double sample : signal) {
        std::printf("%2d %4.1f %9.6f\n", n, sample, filtered[static_cast<std::size_t>(n)]);
        ++n;
    }
}

} // namespace

int main(int argc, char** argv)
{
    try {
        FilterStep(argc > 1 ? std::strtod(argv[1], nullptr) : 0.3);
    } catch (const std::exception& error) {
        // Bad arguments arrive here: std::invalid_argument with a message that says which.
        std::fprintf(stderr, "first_filter: %s\n", error.what());
        return 1;
    }
    return 0;
}
