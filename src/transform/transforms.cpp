#include "transform/transforms.h"

#include <cstdint>

#include "transform/fft_engine.h"

namespace trelvanix
{

ResultArray FFT(const double* input, int n)
{
    ResultArray result = NewComplexResultArray(n);
    ForwardTransform(input, result.get(), n);
    return result;
}

ResultArray IFFT(const double* input, int n)
{
    ResultArray result = NewComplexResultArray(n);
    double* z = result.get();
    const std::int64_t doubles = 2 * std::int64_t{n};
    for (std::int64_t k = 0; k < doubles; k += 2) {
        z[k] = input[k];
        z[k + 1] = -input[k + 1];
    }
    ForwardTransform(z, z, n);
    // The result is not conjugated again: hosts rely on the sign of the imaginary parts. Divided, not
    // multiplied by 1/n, which would round differently.
    for (std::int64_t k = 0; k < doubles; ++k)
        z[k] /= n;
    return result;
}

void FFText(const double* x, int xCount, int n, double* outReal, double* outImag)
{
    const ResultArray spectrum = NewComplexResultArray(n);
    double* z = spectrum.get();
    // Compared as unsigned numbers: a negative count means that all n samples are there.
    const auto available = static_cast<std::uint32_t>(xCount);
    for (std::int64_t k = 0; k < n; ++k) {
        z[2 * k] = k < available ? x[k] : 0.0;
        z[2 * k + 1] = 0.0;
    }
    ForwardTransform(z, z, n);
    for (std::int64_t k = 0; k < n; ++k) {
        outReal[k] = z[2 * k];
        outImag[k] = z[2 * k + 1];
    }
}

} // namespace trelvanix
