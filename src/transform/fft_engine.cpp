#include "transform/fft_engine.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "common/instruction_set.h"
#include "common/result_array.h"
#include "transform/fft_kernel.h"

namespace trelvanix
{
namespace
{

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

std::int64_t TransformSize(int n)
{
    return std::bit_floor(static_cast<std::uint32_t>(n));
}

// Work memory for count complex elements: on the stack where the heap would take a noticeable part of
// the time.
class WorkArray
{
public:
    explicit WorkArray(std::int64_t count)
        : large(count > smallCount ? NewComplexWorkArray(count) : nullptr)
    {
    }

    double* Data()
    {
        return large ? large.get() : small;
    }

private:
    static constexpr std::int64_t smallCount = 512;
    alignas(64) double small[2 * smallCount];
    ResultArray large;
};

// The twin of a kernel for this processor and a transform of this size: small ones don't fill the widest
// vectors.
template <class Kernel>
Kernel* Choose(std::int64_t size, Kernel* baseline, Kernel* avx2, Kernel* avx512)
{
    constexpr std::int64_t smallest = 128;
    return ForInstructionSet(BestInstructionSet(), baseline, avx2, size < smallest ? avx2 : avx512);
}

} // namespace

void ForwardTransform(const double* input, double* output, int n)
{
    if (n < 1)
        return;
    const std::int64_t size = TransformSize(n);
    WorkArray twiddles(size / 2);
    Choose(size, baseline::TransformComplex, avx2::TransformComplex,
           avx512::TransformComplex)(input, output, size, n, twiddles.Data());
    ZeroForOtherLengths(output, size, n, 2);
}

void ConjugateTransform(const double* input, double* output, int n)
{
    if (n < 1)
        return;
    const std::int64_t size = TransformSize(n);
    WorkArray twiddles(size / 2);
    Choose(size, baseline::TransformConjugate, avx2::TransformConjugate,
           avx512::TransformConjugate)(input, output, size, n, twiddles.Data());
    ZeroForOtherLengths(output, size, n, 2);
}

void RealTransform(const double* x, std::int64_t count, double* outReal, double* outImag, int n)
{
    if (n < 1)
        return;
    const std::int64_t size = TransformSize(n);
    WorkArray work(size + size / 2);
    Choose(size, baseline::TransformReal, avx2::TransformReal, avx512::TransformReal)(
        x, count, outReal, outImag, size, n, work.Data(), work.Data() + 2 * size);
    ZeroForOtherLengths(outReal, size, n, 1);
    ZeroForOtherLengths(outImag, size, n, 1);
}

} // namespace trelvanix
