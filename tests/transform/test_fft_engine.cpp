#include "transform/fft_engine.h"

#include <gtest/gtest.h>

#include <cmath>
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

std::vector<double> Transform(const std::vector<double>& input)
{
    // Rubbish in the output shows that every element is written.
    std::vector<double> output(input.size(), 1e300);
    ForwardTransform(input.data(), output.data(), static_cast<int>(input.size() / 2));
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

TEST(ForwardTransform, CopiesASingleElement)
{
    EXPECT_EQ(Transform({3.5, -0.25}), (std::vector<double>{3.5, -0.25}));
}

TEST(ForwardTransform, OfAnImpulseIsOneEverywhere)
{
    std::vector<double> impulse(16, 0.0);
    impulse[0] = 1.0;
    const std::vector<double> spectrum = Transform(impulse);
    for (std::size_t k = 0; k < 8; ++k) {
        EXPECT_EQ(spectrum[2 * k], 1.0);
        EXPECT_EQ(spectrum[2 * k + 1], 0.0);
    }
}

TEST(ForwardTransform, OfADelayedImpulseTurnsWithTheNegativeExponent)
{
    std::vector<double> impulse(16, 0.0);
    impulse[2] = 1.0;
    const double r = std::sqrt(0.5);
    const std::vector<double> expected = {1, 0, r, -r, 0, -1, -r, -r, -1, 0, -r, r, 0, 1, r, r};
    // Each output is one twiddle, or a product of two: a few roundings of numbers up to one.
    EXPECT_TRUE(IsNear(expected, Transform(impulse).data(), 4 * epsilon));
}

TEST(ForwardTransform, OfOneTwoThreeFour)
{
    const std::vector<double> expected = {10, 0, -2, 2, -2, 0, -2, -2};
    // The twiddle -i has a real part of 6e-17 instead of 0.
    EXPECT_TRUE(IsNear(expected, Transform({1, 0, 2, 0, 3, 0, 4, 0}).data(), 4 * epsilon));
}

TEST(ForwardTransform, MatchesTheDefiningSumForPowersOfTwo)
{
    for (std::size_t n = 1; n <= 512; n *= 2) {
        const std::vector<double> input = Samples(static_cast<std::uint32_t>(n)).Plain(2 * n);
        EXPECT_TRUE(IsNear(DirectTransform(input), Transform(input).data(), TransformTolerance(n)))
            << "n = " << n;
    }
}

TEST(ForwardTransform, KeepsZerosForLengthSix)
{
    const std::vector<double> input = Samples(6).Plain(12);
    const std::vector<double> spectrum = Transform(input);
    for (const std::size_t k : {0U, 2U, 4U, 5U}) {
        EXPECT_TRUE(testing::SameBits(spectrum[2 * k], 0.0)) << "element " << k;
        EXPECT_TRUE(testing::SameBits(spectrum[2 * k + 1], 0.0)) << "element " << k;
    }
}

TEST(ForwardTransform, KeepsTwiddlesOfTheFullLengthForLengthSix)
{
    // Elements 1 and 3 come out of the butterflies of the first four inputs, with e^(-2 pi i k / 6)
    // where a four-point transform has e^(-2 pi i k / 4): X[1] = (x0 - x2) + w (x1 - x3), X[3] = (x0 -
    // x2) - ...
    const std::vector<double> input = {1, 0, 2, 0, 3, 0, 5, 0, 7, 0, 11, 0};
    const double wRe = 0.5;
    const double wIm = -std::sqrt(3.0) / 2.0;
    const std::vector<double> spectrum = Transform(input);
    EXPECT_NEAR(spectrum[2], -2.0 + wRe * -3.0, 8 * epsilon);
    EXPECT_NEAR(spectrum[3], wIm * -3.0, 8 * epsilon);
    EXPECT_NEAR(spectrum[6], -2.0 - wRe * -3.0, 8 * epsilon);
    EXPECT_NEAR(spectrum[7], -wIm * -3.0, 8 * epsilon);
}

TEST(ForwardTransform, IgnoresInputsBeyondTheLargestPowerOfTwo)
{
    std::vector<double> input = Samples(1).Plain(200);
    const std::vector<double> spectrum = Transform(input);
    for (std::size_t i = 128; i < input.size(); ++i)
        input[i] = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(HasSameBits(spectrum, Transform(input).data()));
}

TEST(ForwardTransform, WorksInPlace)
{
    for (const int n : {1, 2, 7, 64, 100}) {
        std::vector<double> data = Samples(2).Plain(2 * static_cast<std::size_t>(n));
        const std::vector<double> expected = Transform(data);
        ForwardTransform(data.data(), data.data(), n);
        EXPECT_TRUE(HasSameBits(expected, data.data())) << "n = " << n;
    }
}

TEST(ForwardTransform, DoesNothingForNoElements)
{
    double untouched[] = {5.0, 6.0};
    ForwardTransform(untouched, untouched, 0);
    EXPECT_EQ(untouched[0], 5.0);
    EXPECT_EQ(untouched[1], 6.0);
}

TEST(ForwardTransform, HasTheBitsOfThePlainFormForEveryLength)
{
    Samples samples(3);
    for (std::size_t n = 1; n <= 300; ++n) {
        for (const auto& input : {samples.Plain(2 * n), samples.Hostile(2 * n)})
            ASSERT_TRUE(HasSameBits(PlainForwardTransform(input), Transform(input).data()))
                << "n = " << n;
    }
    for (const std::size_t n : {1023U, 1024U, 4096U, 5000U}) {
        const std::vector<double> input = samples.Plain(2 * n);
        ASSERT_TRUE(HasSameBits(PlainForwardTransform(input), Transform(input).data())) << "n = " << n;
    }
}

} // namespace
} // namespace trelvanix
