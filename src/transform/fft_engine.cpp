#include "transform/fft_engine.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <utility>
#include <vector>

#include "common/complex_arithmetic.h"
#include "common/constants.h"
#include "common/growable_array.h"

namespace trelvanix
{
namespace
{

// e^(-2 pi i k / n) for k = 0 .. count - 1.
std::vector<Complex> Twiddles(std::int64_t count, int n)
{
    auto twiddles = NewGrowableArray<Complex>(count);
    for (std::int64_t k = 0; k < count; ++k) {
        // Negated as an integer: the first angle is +0, and so is its sine. Add, multiply, divide, in
        // this order: a step 2 pi / n computed once would round differently.
        const auto t = static_cast<double>(-k);
        twiddles.data()[k] = UnitPhasor((t + t) * pi / n);
    }
    return twiddles;
}

// One stage on blocks of blockLength elements. input and output may be the same array: a butterfly
// reads the two elements that it writes. No product is left out, not even the one with 1 + 0i: it
// turns an infinity into not-a-number and may change the sign of a zero.
void Stage(const double* input, double* output, std::int64_t size, std::int64_t blockLength,
           const Complex* twiddles)
{
    const std::int64_t half = blockLength / 2;
    const std::int64_t groups = size / blockLength;
    for (std::int64_t block = 0; block < size; block += blockLength) {
        for (std::int64_t k = 0; k < half; ++k) {
            const Complex a = LoadComplex(input, block + k);
            const Complex d = LoadComplex(input, block + k + half);
            StoreComplex(output, block + k, a + d);
            StoreComplex(output, block + k + half, Multiply(a - d, twiddles[groups * k]));
        }
    }
}

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

// Moves element i to bitreverse(i), or overwrites it with zero when i < zeroed.
void PermuteAndZero(double* data, std::int64_t size, std::int64_t zeroed)
{
    for (std::int64_t i = 0, r = 0; i < size; ++i, r = NextReversed(r, size)) {
        if (i < r) {
            std::swap(data[2 * i], data[2 * r]);
            std::swap(data[2 * i + 1], data[2 * r + 1]);
        }
    }
    for (std::int64_t i = 0, r = 0; i < zeroed; ++i, r = NextReversed(r, size))
        StoreComplex(data, r, 0.0);
}

} // namespace

void ForwardTransform(const double* input, double* output, int n)
{
    if (n < 1)
        return;
    const std::int64_t size = std::bit_floor(static_cast<std::uint32_t>(n));
    const std::vector<Complex> twiddles = Twiddles(size / 2, n);

    if (size == 1)
        StoreComplex(output, 0, LoadComplex(input, 0));
    const double* source = input;
    for (std::int64_t blockLength = size; blockLength > 1; blockLength /= 2) {
        Stage(source, output, size, blockLength, twiddles.data());
        source = output;
    }

    // The permutation runs over all n elements: those beyond 2^m hold zeros and land, bit-reversed in
    // m bits, on results.
    PermuteAndZero(output, size, n - size);
    std::fill(output + 2 * size, output + 2 * std::int64_t{n}, 0.0);
}

} // namespace trelvanix
