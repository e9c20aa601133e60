#include "classic/transforms.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <vector>

#include "support/bits.h"
#include "support/plain_kernels.h"
#include "support/samples.h"
#include "trelvanix.h"

namespace trelvanix
{
namespace
{

using testing::HasSameBits;
using testing::IsNear;
using testing::PlainForwardTransform;
using testing::Samples;

constexpr double epsilon = std::numeric_limits<double>::epsilon();

struct SplitSpectrum {
    std::vector<double> real, imag;
};

std::vector<double> Spectrum(const std::vector<double>& input)
{
    const ResultArray spectrum = FFT(input.data(), static_cast<int>(input.size() / 2));
    return {spectrum.get(), spectrum.get() + input.size()};
}

SplitSpectrum TransformReal(const std::vector<double>& x, int xCount, int n)
{
    const auto size = static_cast<std::size_t>(n);
    SplitSpectrum spectrum{std::vector<double>(size, 1e300), std::vector<double>(size, 1e300)};
    FFText(x.data(), xCount, n, spectrum.real.data(), spectrum.imag.data());
    return spectrum;
}

TEST(DFT, HasTheBitsOfFFT)
{
    Samples samples(10);
    for (int n = 1; n <= 70; ++n) {
        const std::vector<double> input = samples.Hostile(2 * static_cast<std::size_t>(n));
        const ResultArray dft(::DFT(input.data(), 0, n));
        const ResultArray fft(::FFT(input.data(), 99, n));
        const std::vector<double> expected(dft.get(), dft.get() + input.size());
        EXPECT_TRUE(HasSameBits(expected, fft.get())) << "n = " << n;
    }
}

TEST(FFT, LeavesItsInputAlone)
{
    std::vector<double> input = Samples(11).Plain(32);
    const std::vector<double> copy = input;
    FFT(input.data(), 16);
    IFFT(input.data(), 16);
    EXPECT_EQ(input, copy);
}

TEST(FFT, GivesAnEmptyArrayForNoElements)
{
    EXPECT_NE(FFT(nullptr, 0), nullptr);
    EXPECT_NE(IFFT(nullptr, 0), nullptr);
}

TEST(FFT, RefusesANegativeLength)
{
    EXPECT_THROW(FFT(nullptr, -1), std::bad_array_new_length);
    EXPECT_THROW(IFFT(nullptr, -1), std::bad_array_new_length);
    EXPECT_THROW(IFFT(nullptr, std::numeric_limits<int>::min()), std::bad_array_new_length);
}

TEST(FFT, IsLinear)
{
    constexpr std::size_t n = 64;
    Samples samples(12);
    const std::vector<double> x = samples.Plain(2 * n);
    const std::vector<double> y = samples.Plain(2 * n);
    std::vector<double> sum(2 * n);
    for (std::size_t i = 0; i < 2 * n; ++i)
        sum[i] = 2.0 * x[i] + y[i];
    const ResultArray fx = FFT(x.data(), n);
    const ResultArray fy = FFT(y.data(), n);
    const ResultArray fsum = FFT(sum.data(), n);
    std::vector<double> expected(2 * n);
    for (std::size_t i = 0; i < 2 * n; ++i)
        expected[i] = 2.0 * fx[i] + fy[i];
    // Six stages with about 8 roundings each, on values of up to 3 sqrt(2) n.
    EXPECT_TRUE(IsNear(expected, fsum.get(), 8 * 6 * epsilon * 3 * std::sqrt(2.0) * n));
}

TEST(FFT, KeepsZerosForLengthSix)
{
    const std::vector<double> input = Samples(6).Plain(12);
    const std::vector<double> spectrum = Spectrum(input);
    for (const std::size_t k : {0U, 2U, 4U, 5U}) {
        EXPECT_TRUE(testing::SameBits(spectrum[2 * k], 0.0)) << "element " << k;
        EXPECT_TRUE(testing::SameBits(spectrum[2 * k + 1], 0.0)) << "element " << k;
    }
}

TEST(FFT, KeepsTwiddlesOfTheFullLengthForLengthSix)
{
    // Elements 1 and 3 come out of the butterflies of the first four inputs, with e^(-2 pi i k / 6)
    // where a four-point transform has e^(-2 pi i k / 4): X[1] = (x0 - x2) + w (x1 - x3), X[3] = (x0 -
    // x2) - ...
    const std::vector<double> input = {1, 0, 2, 0, 3, 0, 5, 0, 7, 0, 11, 0};
    const double wRe = 0.5;
    const double wIm = -std::sqrt(3.0) / 2.0;
    const std::vector<double> spectrum = Spectrum(input);
    EXPECT_NEAR(spectrum[2], -2.0 + wRe * -3.0, 8 * epsilon);
    EXPECT_NEAR(spectrum[3], wIm * -3.0, 8 * epsilon);
    EXPECT_NEAR(spectrum[6], -2.0 - wRe * -3.0, 8 * epsilon);
    EXPECT_NEAR(spectrum[7], -wIm * -3.0, 8 * epsilon);
}

TEST(FFT, IgnoresInputsBeyondTheLargestPowerOfTwo)
{
    std::vector<double> input = Samples(1).Plain(200);
    const std::vector<double> spectrum = Spectrum(input);
    for (std::size_t i = 128; i < input.size(); ++i)
        input[i] = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(HasSameBits(spectrum, Spectrum(input).data()));
}

TEST(FFT, HasTheBitsOfThePlainFormForEveryLength)
{
    Samples samples(3);
    for (std::size_t n = 1; n <= 300; ++n) {
        for (const auto& input : {samples.Plain(2 * n), samples.Hostile(2 * n)})
            ASSERT_TRUE(HasSameBits(testing::PlainForwardTransform(input), Spectrum(input).data()))
                << "n = " << n;
    }
    for (const std::size_t n : {1023U, 1024U, 4096U, 5000U}) {
        const std::vector<double> input = samples.Plain(2 * n);
        ASSERT_TRUE(HasSameBits(testing::PlainForwardTransform(input), Spectrum(input).data()))
            << "n = " << n;
    }
}

TEST(IFFT, ReturnsARealSignalFromItsSpectrum)
{
    constexpr std::size_t n = 256;
    std::vector<double> signal = Samples(13).Plain(2 * n);
    for (std::size_t k = 0; k < n; ++k)
        signal[2 * k + 1] = 0.0;
    const ResultArray spectrum = FFT(signal.data(), n);
    const ResultArray back = IFFT(spectrum.get(), n);
    // Twice eight stages with about 8 roundings each, the inverse dividing the growth of n away again.
    EXPECT_TRUE(IsNear(signal, back.get(), 8 * 16 * epsilon));
}

TEST(IFFT, KeepsTheConjugateOfAComplexSignal)
{
    const std::vector<double> signal = {0, 0, 0, 1, 0, 0, 0, 0};
    const ResultArray spectrum = FFT(signal.data(), 4);
    EXPECT_TRUE(IsNear({0, 1, 1, 0, 0, -1, -1, 0}, spectrum.get(), 4 * epsilon));
    const ResultArray back = IFFT(spectrum.get(), 4);
    EXPECT_TRUE(IsNear({0, 0, 0, -1, 0, 0, 0, 0}, back.get(), 4 * epsilon));
}

TEST(IFFT, ConjugatesTransformsAndDividesForEveryLength)
{
    Samples samples(14);
    for (int n = 1; n <= 100; ++n) {
        const std::vector<double> input = samples.Hostile(2 * static_cast<std::size_t>(n));
        std::vector<double> conjugated = input;
        for (std::size_t i = 1; i < conjugated.size(); i += 2)
            conjugated[i] = -conjugated[i];
        std::vector<double> expected = PlainForwardTransform(conjugated);
        for (double& value : expected)
            value = value / static_cast<double>(n);
        EXPECT_TRUE(HasSameBits(expected, IFFT(input.data(), n).get())) << "n = " << n;
    }
}

TEST(FFText, UsesOnlyTheFirstSamplesOfALongSignal)
{
    std::vector<double> x = Samples(15).Plain(20);
    const SplitSpectrum cut = TransformReal(x, 20, 8);
    for (std::size_t i = 8; i < x.size(); ++i)
        x[i] = std::numeric_limits<double>::quiet_NaN();
    const SplitSpectrum alone = TransformReal(x, 8, 8);
    EXPECT_TRUE(HasSameBits(alone.real, cut.real.data()));
    EXPECT_TRUE(HasSameBits(alone.imag, cut.imag.data()));
}

TEST(FFText, PadsAPulseOfThreeToEight)
{
    const SplitSpectrum spectrum = TransformReal({1, 1, 1}, 3, 8);
    EXPECT_EQ(spectrum.real[0], 3.0);
    EXPECT_EQ(spectrum.imag[0], 0.0);
    // 1 + e^(-j w) + e^(-2j w) = e^(-j w) (1 + 2 cos w), w = pi k / 4
    for (std::size_t k = 1; k < 8; ++k) {
        const double w = std::acos(-1.0) * static_cast<double>(k) / 4.0;
        const double amplitude = 1.0 + 2.0 * std::cos(w);
        EXPECT_NEAR(spectrum.real[k], std::cos(w) * amplitude, 16 * epsilon) << "bin " << k;
        EXPECT_NEAR(spectrum.imag[k], -std::sin(w) * amplitude, 16 * epsilon) << "bin " << k;
    }
}

TEST(FFText, OfNoSamplesIsZero)
{
    SplitSpectrum spectrum{std::vector<double>(4, 1e300), std::vector<double>(4, 1e300)};
    FFText(nullptr, 0, 4, spectrum.real.data(), spectrum.imag.data());
    for (std::size_t k = 0; k < 4; ++k) {
        EXPECT_EQ(spectrum.real[k], 0.0);
        EXPECT_EQ(spectrum.imag[k], 0.0);
    }
}

TEST(FFText, KeepsReadingAllSamplesForANegativeCount)
{
    const std::vector<double> x = Samples(16).Plain(8);
    const SplitSpectrum whole = TransformReal(x, 8, 8);
    for (const int count : {-1, std::numeric_limits<int>::min()}) {
        const SplitSpectrum negative = TransformReal(x, count, 8);
        EXPECT_TRUE(HasSameBits(whole.real, negative.real.data()));
        EXPECT_TRUE(HasSameBits(whole.imag, negative.imag.data()));
    }
}

TEST(FFText, HasTheBitsOfFFTOnPaddedInput)
{
    Samples samples(17);
    for (int n = 1; n <= 100; ++n) {
        const int xCount = samples.NextBelow(2 * n);
        const std::vector<double> x = samples.Hostile(static_cast<std::size_t>(xCount));
        std::vector<double> padded(2 * static_cast<std::size_t>(n), 0.0);
        for (int i = 0; i < std::min(xCount, n); ++i)
            padded[2 * static_cast<std::size_t>(i)] = x[static_cast<std::size_t>(i)];
        const std::vector<double> expected = PlainForwardTransform(padded);
        const SplitSpectrum spectrum = TransformReal(x, xCount, n);
        for (std::size_t k = 0; k < static_cast<std::size_t>(n); ++k) {
            EXPECT_TRUE(testing::SameBits(expected[2 * k], spectrum.real[k])) << n << " " << k;
            EXPECT_TRUE(testing::SameBits(expected[2 * k + 1], spectrum.imag[k])) << n << " " << k;
        }
    }
}

TEST(FFText, WritesNothingForLengthZeroOrAnError)
{
    double real[] = {5.0};
    double imag[] = {6.0};
    FFText(nullptr, 0, 0, real, imag);
    EXPECT_THROW(FFText(nullptr, 0, -1, real, imag), std::bad_array_new_length);
    EXPECT_EQ(real[0], 5.0);
    EXPECT_EQ(imag[0], 6.0);
}

} // namespace
} // namespace trelvanix
