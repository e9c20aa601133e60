#include "transform/fourier.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "support/bits.h"
#include "support/plain_kernels.h"
#include "support/samples.h"

namespace trelvanix
{
namespace
{

using testing::HasSameBits;
using testing::IsNear;
using testing::PlainForwardTransform;
using testing::Samples;

constexpr double epsilon = std::numeric_limits<double>::epsilon();

// Passes with a table of their own, made for the discrete Fourier transform.
struct Prepared {
    explicit Prepared(std::size_t n)
        : table(n + 1),
          passes(PrepareFourier(static_cast<std::int64_t>(n), static_cast<int>(n), table.data()))
    {
    }

    std::vector<double> table;
    FourierPasses passes;
};

std::vector<double> Transform(const std::vector<double>& input)
{
    // Rubbish in the output shows that every element is written.
    std::vector<double> output(input.size(), 1e300);
    TransformComplex(Prepared(input.size() / 2).passes, input.data(), output.data());
    return output;
}

// The defining sum in long double.
std::vector<double> DirectTransform(const std::vector<double>& input)
{
    const std::size_t n = input.size() / 2;
    std::vector<double> spectrum;
    for (std::size_t k = 0; k < n; ++k) {
        long double re = 0.0L;
        long double im = 0.0L;
        for (std::size_t j = 0; j < n; ++j) {
            const long double angle = -2.0L * std::acos(-1.0L) * static_cast<long double>(j * k % n) /
                                      static_cast<long double>(n);
            const long double xRe = input[2 * j];
            const long double xIm = input[2 * j + 1];
            re += xRe * std::cos(angle) - xIm * std::sin(angle);
            im += xRe * std::sin(angle) + xIm * std::cos(angle);
        }
        spectrum.push_back(static_cast<double>(re));
        spectrum.push_back(static_cast<double>(im));
    }
    return spectrum;
}

// Bound on the error of a radix-2 transform of elements of modulus <= sqrt(2): each of the log2 n
// stages adds at most (1 + sqrt(2)) rounding errors of its butterflies' products and about 4 of the
// twiddles (rounded angle and function) relative to the norm of the data, which is at most sqrt(2) n in
// any element (Gentleman & Sande 1966; the constants rounded up).
double TransformTolerance(std::size_t n)
{
    const auto size = static_cast<double>(n);
    return 8.0 * std::log2(size) * epsilon * std::sqrt(2.0) * size;
}

TEST(TransformComplex, CopiesASingleElement)
{
    EXPECT_EQ(Transform({3.5, -0.25}), (std::vector<double>{3.5, -0.25}));
}

TEST(TransformComplex, OfAnImpulseIsOneEverywhere)
{
    std::vector<double> impulse(16, 0.0);
    impulse[0] = 1.0;
    const std::vector<double> spectrum = Transform(impulse);
    for (std::size_t k = 0; k < 8; ++k) {
        EXPECT_EQ(spectrum[2 * k], 1.0);
        EXPECT_EQ(spectrum[2 * k + 1], 0.0);
    }
}

TEST(TransformComplex, OfADelayedImpulseTurnsWithTheNegativeExponent)
{
    std::vector<double> impulse(16, 0.0);
    impulse[2] = 1.0;
    const double r = std::sqrt(0.5);
    const std::vector<double> expected = {1, 0, r, -r, 0, -1, -r, -r, -1, 0, -r, r, 0, 1, r, r};
    // Each output is one twiddle, or a product of two: a few roundings of numbers up to one.
    EXPECT_TRUE(IsNear(expected, Transform(impulse).data(), 4 * epsilon));
}

TEST(TransformComplex, OfOneTwoThreeFour)
{
    const std::vector<double> expected = {10, 0, -2, 2, -2, 0, -2, -2};
    // The twiddle -i has a real part of 6e-17 instead of 0.
    EXPECT_TRUE(IsNear(expected, Transform({1, 0, 2, 0, 3, 0, 4, 0}).data(), 4 * epsilon));
}

TEST(TransformComplex, MatchesTheDefiningSumForPowersOfTwo)
{
    for (std::size_t n = 1; n <= 512; n *= 2) {
        const std::vector<double> input = Samples(static_cast<std::uint32_t>(n)).Plain(2 * n);
        EXPECT_TRUE(IsNear(DirectTransform(input), Transform(input).data(), TransformTolerance(n)))
            << "n = " << n;
    }
}

TEST(TransformComplex, WorksInPlace)
{
    for (const std::size_t n : {1U, 2U, 8U, 64U, 128U}) {
        std::vector<double> data = Samples(2).Plain(2 * n);
        const std::vector<double> expected = Transform(data);
        TransformComplex(Prepared(n).passes, data.data(), data.data());
        EXPECT_TRUE(HasSameBits(expected, data.data())) << "n = " << n;
    }
}

TEST(TransformComplex, RunsAgainOverTheSameTable)
{
    const Prepared prepared(256);
    const std::vector<double> input = Samples(4).Plain(512);
    std::vector<double> first(512);
    std::vector<double> second(512);
    TransformComplex(prepared.passes, input.data(), first.data());
    TransformComplex(prepared.passes, input.data(), second.data());
    EXPECT_TRUE(HasSameBits(first, second.data()));
}

TEST(TransformComplex, HasTheBitsOfThePlainForm)
{
    Samples samples(3);
    for (std::size_t n = 1; n <= 4096; n *= 2) {
        for (const auto& input : {samples.Plain(2 * n), samples.Hostile(2 * n)})
            ASSERT_TRUE(HasSameBits(PlainForwardTransform(input), Transform(input).data()))
                << "n = " << n;
    }
}

TEST(TransformConjugate, ConjugatesItsInputAndDividesByThePeriod)
{
    std::vector<double> input = Samples(5).Plain(64);
    std::vector<double> output(64);
    TransformConjugate(Prepared(32).passes, input.data(), output.data());
    for (std::size_t k = 1; k < 64; k += 2)
        input[k] = -input[k];
    std::vector<double> expected = Transform(input);
    for (double& part : expected)
        part /= 32.0;
    EXPECT_TRUE(HasSameBits(expected, output.data()));
}

TEST(TransformReal, PadsWithZerosAndSeparatesTheParts)
{
    const std::vector<double> x = Samples(6).Plain(100);
    std::vector<double> padded(256, 0.0);
    for (std::size_t k = 0; k < x.size(); ++k)
        padded[2 * k] = x[k];
    const std::vector<double> expected = Transform(padded);
    std::vector<double> re(128);
    std::vector<double> im(128);
    std::vector<double> work(256);
    TransformReal(Prepared(128).passes, x.data(), 100, re.data(), im.data(), work.data());
    for (std::size_t k = 0; k < 128; ++k) {
        ASSERT_TRUE(testing::SameBits(expected[2 * k], re[k])) << k;
        ASSERT_TRUE(testing::SameBits(expected[2 * k + 1], im[k])) << k;
    }
}

TEST(FourierInstructionSet, GivesSmallTransformsNoMoreThanFourLanes)
{
    EXPECT_EQ(FourierInstructionSet(InstructionSet::baseline, 64), InstructionSet::baseline);
    EXPECT_EQ(FourierInstructionSet(InstructionSet::baseline, 1024), InstructionSet::baseline);
#if defined(TRELVANIX_X86_KERNELS)
    EXPECT_EQ(FourierInstructionSet(InstructionSet::avx2, 64), InstructionSet::avx2);
    EXPECT_EQ(FourierInstructionSet(InstructionSet::avx2, 1024), InstructionSet::avx2);
    EXPECT_EQ(FourierInstructionSet(InstructionSet::avx512, 64), InstructionSet::avx2);
    EXPECT_EQ(FourierInstructionSet(InstructionSet::avx512, 128), InstructionSet::avx512);
#endif
}

} // namespace
} // namespace trelvanix
