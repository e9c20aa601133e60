#include "classic/transforms.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <new>

#include "common/vector_memory.h"
#include "transform/fourier.h"

namespace trelvanix
{
namespace
{

// The passes run on the largest power of two within the length.
std::int64_t TransformSize(int n)
{
    return std::bit_floor(static_cast<std::uint32_t>(n));
}

// Work memory for count complex elements: on the stack where the heap would take a noticeable part of
// the time.
class WorkMemory
{
public:
    explicit WorkMemory(std::int64_t count)
        : large(count > smallCount ? NewVectorMemory(2 * count) : nullptr)
    {
    }

    double* Data()
    {
        return large ? large.get() : small;
    }

private:
    static constexpr std::int64_t smallCount = 512;
    alignas(64) double small[2 * smallCount];
    VectorMemory large;
};

// The successor of r when the bits of the index are read from the top: index size / 2 comes after 0.
std::int64_t NextReversed(std::int64_t r, std::int64_t size)
{
    std::int64_t bit = size >> 1;
    while ((r & bit) != 0) {
        r ^= bit;
        bit >>= 1;
    }
    return r | bit;
}

// What the permutation does to a spectrum of `size` elements in an array of n: it runs over all n
// elements, and those beyond `size` hold zeros and land, bit-reversed, on results. An element are
// `width` doubles.
void ZeroForOtherLengths(double* spectrum, std::int64_t size, int n, int width)
{
    for (std::int64_t i = 0, r = 0; i < n - size; ++i, r = NextReversed(r, size))
        std::fill_n(spectrum + r * width, width, 0.0);
    std::fill(spectrum + size * width, spectrum + std::int64_t{n} * width, 0.0);
}

// One of the two transforms of n complex elements.
ResultArray TransformAll(const double* input, int n, decltype(TransformComplex)* transform)
{
    ResultArray result = NewComplexResultArray(n);
    if (n == 0)
        return result;
    const std::int64_t size = TransformSize(n);
    WorkMemory table(size / 2);
    transform(PrepareFourier(size, n, table.Data()), input, result.get());
    ZeroForOtherLengths(result.get(), size, n, 2);
    return result;
}

} // namespace

ResultArray FFT(const double* input, int n)
{
    return TransformAll(input, n, TransformComplex);
}

ResultArray IFFT(const double* input, int n)
{
    // The result is not conjugated again: hosts rely on the sign of the imaginary parts.
    return TransformAll(input, n, TransformConjugate);
}

void FFText(const double* x, int xCount, int n, double* outReal, double* outImag)
{
    if (n < 0)
        throw std::bad_array_new_length();
    if (n == 0)
        return;
    const std::int64_t size = TransformSize(n);
    WorkMemory memory(size + size / 2);
    double* const table = memory.Data() + 2 * size;
    // Read as an unsigned number: a negative count means that all n samples are there.
    TransformReal(PrepareFourier(size, n, table), x, static_cast<std::uint32_t>(xCount), outReal,
                  outImag, memory.Data());
    ZeroForOtherLengths(outReal, size, n, 1);
    ZeroForOtherLengths(outImag, size, n, 1);
}

} // namespace trelvanix
