#include "transform/fft_kernel.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

#include "common/instruction_set.h"
#include "support/bits.h"
#include "support/instruction_sets.h"
#include "support/plain_kernels.h"
#include "support/samples.h"

namespace trelvanix
{
namespace
{

using testing::HasSameBits;
using testing::PlainForwardTransform;
using testing::Samples;

struct Kernels : FftKernels {
    const char* name;
};

void PrintTo(const Kernels& kernels, std::ostream* out)
{
    *out << kernels.name;
}

// Those of every instruction set that this processor has.
std::vector<Kernels> AllKernels()
{
    std::vector<Kernels> all;
    for (const InstructionSet set : testing::AvailableInstructionSets())
        all.push_back({KernelsFor<FftKernels>(set), testing::NameOf(set)});
    return all;
}

// Where the permutation of n elements leaves results: not at those of the first `size` elements over
// which it writes the zeros that follow them.
std::vector<bool> Kept(std::size_t size, std::size_t n)
{
    std::vector<bool> kept(size, true);
    for (std::size_t i = 0; i < n - size; ++i) {
        std::size_t reversed = 0;
        for (std::size_t bit = 1; bit < size; bit *= 2)
            reversed = 2 * reversed + ((i & bit) != 0 ? 1 : 0);
        kept[reversed] = false;
    }
    return kept;
}

class FftKernel : public ::testing::TestWithParam<Kernels>
{
protected:
    // The three kernels against the plain form for n elements of an input.
    static ::testing::AssertionResult HasThePlainBits(const std::vector<double>& input)
    {
        const std::size_t n = input.size() / 2;
        const std::size_t size = std::bit_floor(n);
        const std::vector<bool> kept = Kept(size, n);
        const auto select = [&](const std::vector<double>& spectrum) {
            std::vector<double> selected;
            for (std::size_t k = 0; k < size; ++k) {
                if (kept[k])
                    selected.insert(selected.end(), {spectrum[2 * k], spectrum[2 * k + 1]});
            }
            return selected;
        };

        std::vector<double> output(2 * size, 1e300);
        std::vector<double> twiddles(size + 1);
        GetParam().makeTwiddleTable(static_cast<std::int64_t>(size), static_cast<int>(n),
                                    twiddles.data());
        const auto transform = [&](TransformComplexKernel* kernel, const double* from) {
            kernel(from, output.data(), static_cast<std::int64_t>(size), static_cast<int>(n),
                   twiddles.data());
            return select(output);
        };

        const std::vector<double> expected = select(PlainForwardTransform(input));
        auto result =
            HasSameBits(expected, transform(GetParam().transformComplex, input.data()).data());
        if (!result)
            return result << " in the transform";

        output.assign(input.begin(), input.begin() + static_cast<std::ptrdiff_t>(2 * size));
        result = HasSameBits(expected, transform(GetParam().transformComplex, output.data()).data());
        if (!result)
            return result << " in place";

        std::vector<double> conjugated = input;
        for (std::size_t k = 1; k < conjugated.size(); k += 2)
            conjugated[k] = -conjugated[k];
        std::vector<double> scaled = select(PlainForwardTransform(conjugated));
        for (double& part : scaled)
            part /= static_cast<double>(n);
        result = HasSameBits(scaled, transform(GetParam().transformConjugate, input.data()).data());
        if (!result)
            return result << " in the transform of the conjugate";

        return HasThePlainBitsForReals(input, size, select);
    }

private:
    // The first samples of the input as a real signal, a quarter of the transform missing.
    template <class Select>
    static ::testing::AssertionResult HasThePlainBitsForReals(const std::vector<double>& input,
                                                              std::size_t size, const Select& select)
    {
        const std::size_t n = input.size() / 2;
        const std::size_t count = n - n / 4;
        std::vector<double> padded(2 * n, 0.0);
        for (std::size_t k = 0; k < count; ++k)
            padded[2 * k] = input[k];
        // No room behind them, so that a memory checker sees a read too far.
        const std::vector<double> x(input.begin(), input.begin() + static_cast<std::ptrdiff_t>(count));
        std::vector<double> real(size, 1e300);
        std::vector<double> imag(size, 1e300);
        std::vector<double> work(2 * size);
        std::vector<double> twiddles(size + 1);
        GetParam().makeTwiddleTable(static_cast<std::int64_t>(size), static_cast<int>(n),
                                    twiddles.data());
        GetParam().transformReal(x.data(), static_cast<std::int64_t>(count), real.data(), imag.data(),
                                 static_cast<std::int64_t>(size), static_cast<int>(n), twiddles.data(),
                                 work.data());
        std::vector<double> spectrum;
        for (std::size_t k = 0; k < size; ++k)
            spectrum.insert(spectrum.end(), {real[k], imag[k]});
        auto result = HasSameBits(select(PlainForwardTransform(padded)), select(spectrum).data());
        return result ? result : result << " in the transform of reals";
    }
};

TEST_P(FftKernel, HasTheBitsOfThePlainFormForEveryLength)
{
    Samples samples(40);
    for (std::size_t n = 1; n <= 300; ++n) {
        for (const auto& input : {samples.Plain(2 * n), samples.Hostile(2 * n), samples.Tiny(2 * n),
                                  samples.OneHostile(2 * n)})
            ASSERT_TRUE(HasThePlainBits(input)) << "n = " << n;
    }
}

TEST_P(FftKernel, HasTheBitsOfThePlainFormForLongInputs)
{
    Samples samples(41);
    // Powers of two, their neighbours, and primes; from 2^15 on blocks are finished one by one.
    for (const std::size_t n : {511U, 512U, 513U, 1021U, 1024U, 2048U, 4093U, 4096U, 8191U, 8192U,
                                8193U, 16384U, 32768U, 65536U, 70001U, 131072U, 262144U}) {
        ASSERT_TRUE(HasThePlainBits(samples.Plain(2 * n))) << "n = " << n;
    }
}

TEST_P(FftKernel, HasTheBitsOfThePlainFormForFewSpecialNumbers)
{
    // Among random numbers the sign of a zero hardly ever decides a sign of the spectrum, and one
    // not-a-number covers all of it; here both show, the sign of a twiddle's zero included.
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double denormal = std::numeric_limits<double>::denorm_min();
    for (const std::size_t n : {1U, 2U, 4U, 8U, 16U, 32U, 64U, 128U, 256U, 512U, 1024U}) {
        for (const double special : {0.0, -0.0, denormal, -denormal, 1.0, infinity, -infinity}) {
            for (std::size_t at = 0; at < 2 * n; at += 1 + n / 4) {
                for (const double rest : {0.0, -0.0}) {
                    std::vector<double> input(2 * n, rest);
                    input[at] = special;
                    ASSERT_TRUE(HasThePlainBits(input))
                        << "n = " << n << ", " << special << " at " << at << " among " << rest;
                }
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, FftKernel, ::testing::ValuesIn(AllKernels()),
                         [](const auto& kernels) { return kernels.param.name; });

} // namespace
} // namespace trelvanix
