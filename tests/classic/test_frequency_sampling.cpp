#include "classic/frequency_sampling.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <new>
#include <numeric>
#include <stdexcept>
#include <string>
#include <vector>

#include "classic/window_types.h"
#include "math/exponential.h"
#include "support/bits.h"

namespace trelvanix
{
namespace
{

using testing::HasSameBits;
using testing::IsNear;

constexpr double epsilon = std::numeric_limits<double>::epsilon();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr int intMax = std::numeric_limits<int>::max();
constexpr int LowPass = 0, HighPass = 1, BandPass = 2, BandStop = 3;
constexpr int Rectangle = 0, Hann = 1, Hamming = 2;

std::vector<double> Taps(int order, int filterType, int windowType, double wc1, double wc2)
{
    const ResultArray taps = CreateFirByFS(order, filterType, windowType, wc1, wc2);
    return {taps.get(), taps.get() + order + 1};
}

std::string Refusal(int order, int filterType, int windowType, double wc1, double wc2)
{
    try {
        CreateFirByFS(order, filterType, windowType, wc1, wc2);
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "accepted";
}

std::vector<double> Amplitude(int filterType, double wc1, double wc2, int npt = 512)
{
    return SampleBreakpoints(BandEdgesToBreakpoints(static_cast<FilterType>(filterType), wc1, wc2),
                             npt);
}

// Grid positions count from 1.
double AtPosition(const std::vector<double>& amplitude, int position)
{
    return amplitude[static_cast<std::size_t>(position) - 1];
}

bool AllNotANumber(const std::vector<double>& values)
{
    for (const double value : values) {
        if (!std::isnan(value))
            return false;
    }
    return !values.empty();
}

// ---- Arguments ---------------------------------------------------------------------------------

TEST(CheckFirByFSArguments, ChecksTheOrderBeforeTheWindowType)
{
    EXPECT_EQ(Refusal(0, LowPass, 15, 0.2, 0.3), "Order should be '>=1'");
    EXPECT_EQ(Refusal(-1, LowPass, Hann, 0.2, 0.3), "Order should be '>=1'");
    EXPECT_EQ(Refusal(std::numeric_limits<int>::min(), LowPass, Hann, 0.2, 0.3),
              "Order should be '>=1'");
}

TEST(CheckFirByFSArguments, RefusesAWindowTypeThatIsNoneOfTheFifteen)
{
    const std::string message =
        "windowType should be '0-14'.(Rectangle 0,Hann 1,Hamming 2,Blackman 3,Flattop 4,Kaiser 5,"
        "Gaussian 6,Triang 7,Bartlett 8,Bartlett-Hann 9,Blackman-Harris(Symmetric) 10,"
        "Blackman-Harris(Periodic) 11,Parzen 12,Nuttall(Symmetric) 13,Nuttall(Periodic) 14)";
    EXPECT_EQ(Refusal(10, LowPass, 15, 0.2, 0.3), message);
    EXPECT_EQ(Refusal(10, LowPass, -1, 0.2, 0.3), message);
    // Before the edges are looked at.
    EXPECT_EQ(Refusal(10, LowPass, 15, 0.2, 0.0), message);
    for (int windowType = 0; windowType < 15; ++windowType)
        EXPECT_EQ(Refusal(10, LowPass, windowType, 0.2, 0.3), "accepted");
}

TEST(CreateFirByFS, RefusesWc2ZeroBesideAnotherWc1)
{
    const std::string message = "wc2 should not be '0' when wc1 is not '0'";
    EXPECT_EQ(Refusal(10, LowPass, Hann, 0.2, 0.0), message);
    EXPECT_EQ(Refusal(10, HighPass, Hann, nan, -0.0), message);
    EXPECT_EQ(Refusal(intMax, LowPass, Hann, 0.2, 0.0), message);
    EXPECT_EQ(Refusal(10, BandPass, Hann, 0.2, 0.0), "accepted");
}

TEST(CreateFirByFS, RefusesAtOnceAnOrderWhoseTapsOrGridDoNotFitAnInt)
{
    EXPECT_THROW(CreateFirByFS(intMax, LowPass, Hann, 0.2, 0.3), std::bad_array_new_length);
    EXPECT_THROW(CreateFirByFS(intMax - 1, LowPass, Hann, 0.2, 0.3), std::bad_array_new_length);
    EXPECT_THROW(CreateFirByFS(1 << 30, LowPass, Hann, 0.2, 0.3), std::bad_array_new_length);
}

TEST(CreateFirByFS, TakesAnUnknownTypeForALowPass)
{
    const std::vector<double> expected = Taps(24, LowPass, Hamming, 0.2, 0.3);
    for (const int filterType : {4, 7, -1})
        EXPECT_TRUE(HasSameBits(expected, Taps(24, filterType, Hamming, 0.2, 0.3).data()));
}

// ---- Grid --------------------------------------------------------------------------------------

TEST(FrequencyGridSize, Is512Below1024Taps)
{
    EXPECT_EQ(FrequencyGridSize(2), 512);
    EXPECT_EQ(FrequencyGridSize(1023), 512);
}

TEST(FrequencyGridSize, IsThePowerOfTwoAtOrAboveFrom1024TapsOn)
{
    EXPECT_EQ(FrequencyGridSize(1024), 1024);
    EXPECT_EQ(FrequencyGridSize(1025), 2048);
    EXPECT_EQ(FrequencyGridSize(2048), 2048);
    EXPECT_EQ(FrequencyGridSize(100000), 131072);
    for (int exponent = 10; exponent <= 28; ++exponent)
        EXPECT_EQ(FrequencyGridSize(1 << exponent), 1 << exponent);
}

TEST(FrequencyGridSize, EndsInTheAllocationFailureForLargeCounts)
{
    EXPECT_EQ(FrequencyGridSize((1 << 28) + 1), 1 << 29);
    EXPECT_THROW(FrequencyGridSize((1 << 29) + 1), std::bad_array_new_length);
    EXPECT_THROW(FrequencyGridSize(intMax), std::bad_array_new_length);
}

TEST(FrequencyGridSize, KeepsTheRoundedQuotientOfLogarithmsForTwoTo29)
{
    // log(2^29) / log(2) rounds to the double above 29, so the grid would have 2^30 steps.
    EXPECT_GT(Log(536870912.0) / Log(2.0), 29.0);
    EXPECT_THROW(FrequencyGridSize(1 << 29), std::bad_array_new_length);
}

TEST(SampleBreakpoints, MakesAJumpARampOf21Points)
{
    // The lower band ends at position floor(513 * 0.5) = 256. The ramp starts ten positions before the
    // next one and reaches 20 further: 247 .. 267. Positions count from 1.
    const std::vector<double> amplitude = Amplitude(LowPass, 0.0, 0.5);
    ASSERT_EQ(amplitude.size(), 513U);
    for (int position = 1; position <= 513; ++position) {
        const double inc = (position - 247) / 20.0;
        const double expected =
            position < 247 ? 1.0 : (position > 267 ? 0.0 : inc * 0.0 + (1.0 - inc) * 1.0);
        EXPECT_EQ(AtPosition(amplitude, position), expected) << "position " << position;
    }
}

TEST(SampleBreakpoints, MakesATransitionLinear)
{
    // floor(513 * 0.2) = 102 and floor(513 * 0.3) = 153.
    const std::vector<double> amplitude = Amplitude(LowPass, 0.2, 0.3);
    for (int position = 1; position <= 513; ++position) {
        const double expected =
            position <= 102 ? 1.0 : (position > 153 ? 0.0 : 1.0 - (position - 103) / 50.0);
        EXPECT_EQ(AtPosition(amplitude, position), expected) << "position " << position;
    }
}

TEST(SampleBreakpoints, TypesAreComplements)
{
    // inc + (1 - inc) loses at most one rounding.
    for (const auto& [first, second] : {std::pair{LowPass, HighPass}, std::pair{BandPass, BandStop}}) {
        const std::vector<double> one = Amplitude(first, 0.25, 0.6);
        const std::vector<double> other = Amplitude(second, 0.25, 0.6);
        for (std::size_t i = 0; i < one.size(); ++i)
            EXPECT_NEAR(one[i] + other[i], 1.0, epsilon) << "types " << first << ", " << second;
    }
}

TEST(SampleBreakpoints, MakesARampA25thOfTheGridWide)
{
    // npt / 25 = 40.96 and 81.92, cut off: 41 and 82 points from 1 to 0, the ends included.
    for (const auto& [npt, inner] : {std::pair{1024, 39}, std::pair{2048, 80}}) {
        int between = 0;
        for (const double value : Amplitude(LowPass, 0.0, 0.5, npt))
            between += value > 0.0 && value < 1.0 ? 1 : 0;
        EXPECT_EQ(between, inner) << npt;
    }
}

TEST(SampleBreakpoints, StartsARampOfOddWidthAtTheHalfRoundedUp)
{
    // 81 / 2 = 40.5: floor(2049 * 0.5) + 1 = 1025, so the ramp starts at ceil(984.5) = 985.
    const std::vector<double> amplitude = Amplitude(LowPass, 0.0, 0.5, 2048);
    EXPECT_EQ(amplitude[984], 1.0);
    EXPECT_EQ(amplitude[985], 1.0 - 1.0 / 81.0);
    EXPECT_EQ(amplitude[1065], 0.0);
}

TEST(SampleBreakpoints, LosesThePositionsBelowOneForAJumpNearZero)
{
    // floor(513 * 0.01) = 5: the ramp covers -4 .. 16, of which 1 .. 16 exist.
    const std::vector<double> amplitude = Amplitude(LowPass, 0.0, 0.01);
    for (int position = 1; position <= 16; ++position)
        EXPECT_EQ(AtPosition(amplitude, position), 1.0 - (position + 4) / 20.0) << position;
    EXPECT_EQ(amplitude[16], 0.0);
}

TEST(SampleBreakpoints, LosesThePositionsBeyondTheGridForAJumpNearNyquist)
{
    // floor(513 * 0.995) = 510: the ramp covers 501 .. 521, of which 501 .. 513 exist. The last band,
    // from 522 to 513, covers nothing.
    const std::vector<double> amplitude = Amplitude(LowPass, 0.0, 0.995);
    for (int position = 501; position <= 513; ++position)
        EXPECT_EQ(AtPosition(amplitude, position), 1.0 - (position - 501) / 20.0) << position;
}

TEST(SampleBreakpoints, EndsForTwoJumpsAtZeroThatOverlap)
{
    // Frequencies 0, 0, 0, 1. The first ramp is flat and covers -9 .. 11, the second one 2 .. 22.
    const std::vector<double> amplitude = Amplitude(LowPass, 0.0, 0.0);
    EXPECT_EQ(amplitude[0], 1.0);
    for (int position = 2; position <= 22; ++position)
        EXPECT_EQ(AtPosition(amplitude, position), 1.0 - (position - 2) / 20.0) << position;
    EXPECT_EQ(amplitude[22], 0.0);
    EXPECT_EQ(amplitude[512], 0.0);
}

TEST(SampleBreakpoints, CutsOffEdgesOutsideTheAxis)
{
    // Pass band up to twice the Nyquist frequency: all of the grid passes.
    EXPECT_EQ(Amplitude(LowPass, 2.0, 3.0), std::vector<double>(513, 1.0));
    EXPECT_EQ(Amplitude(LowPass, 1e300, 1e301), std::vector<double>(513, 1.0));
    EXPECT_EQ(Amplitude(LowPass, 1e308, 1.7e308), std::vector<double>(513, 1.0));
    // A transition from 0.5 to 1.5: the upper half falls from 1 to a half.
    const std::vector<double> amplitude = Amplitude(LowPass, 0.5, 1.5);
    EXPECT_EQ(amplitude[255], 1.0);
    EXPECT_NEAR(amplitude[512], 0.5, 1.0 / 512.0);
    // The last section, from negative positions to 513, crosses the whole grid.
    for (const double value : Amplitude(HighPass, -2.0, -1.0))
        EXPECT_EQ(value, 1.0);
}

// ---- Design ------------------------------------------------------------------------------------

TEST(CreateFirByFS, GivesNotANumberForEdgesThatAreNotFinite)
{
    for (const double bad : {nan, infinity, -infinity}) {
        for (const int filterType : {LowPass, HighPass, BandPass, BandStop}) {
            EXPECT_TRUE(AllNotANumber(Taps(8, filterType, Rectangle, bad, 0.5))) << filterType;
            EXPECT_TRUE(AllNotANumber(Taps(8, filterType, Rectangle, 0.5, bad))) << filterType;
        }
        EXPECT_TRUE(AllNotANumber(Taps(8, LowPass, Rectangle, 0.0, bad)));
    }
}

// The inverse transform of a real, even spectrum as a sum of cosines: the slow way.
std::vector<double> TapsByDirectSum(int order, int filterType, double wc1, double wc2, int npt)
{
    const std::vector<double> amplitude = Amplitude(filterType, wc1, wc2, npt);
    const double pi = std::acos(-1.0);
    std::vector<double> taps;
    for (int n = 0; n <= order; ++n) {
        const double t = n - order * 0.5;
        double sum = amplitude.front() + amplitude.back() * std::cos(pi * t);
        for (int i = 1; i < npt; ++i)
            sum += 2.0 * AtPosition(amplitude, i + 1) * std::cos(pi * t * i / npt);
        taps.push_back(sum / (2.0 * npt));
    }
    return taps;
}

TEST(CreateFirByFS, IsTheTruncatedInverseTransformUnderARectangleWindow)
{
    for (const int order : {1, 2, 23, 40, 1023, 1024}) {
        for (const int filterType : {LowPass, HighPass, BandPass, BandStop}) {
            // For an odd order the linear phase turns half a sample: at Nyquist the amplitude times
            // e^(-j pi order / 2) is imaginary and has no part in the taps, as in the cosine sum.
            const int npt = FrequencyGridSize(order + 1);
            const std::vector<double> expected = TapsByDirectSum(order, filterType, 0.25, 0.6, npt);
            const std::vector<double> got = Taps(order, filterType, Rectangle, 0.25, 0.6);
            // Amplitudes up to 1, divided by the count: the sum's rounding is below npt epsilon / 2,
            // and angles up to order * pi carry an error of epsilon each.
            const double tolerance = (npt + 4.0 * order) * epsilon;
            EXPECT_TRUE(IsNear(expected, got.data(), tolerance)) << order << ", " << filterType;
        }
    }
}

TEST(CreateFirByFS, MultipliesTheTapsByTheWindow)
{
    for (int windowType = 0; windowType < 15; ++windowType) {
        std::vector<double> expected = Taps(31, BandPass, Rectangle, 0.3, 0.5);
        const ResultArray window = CreateWindow(static_cast<WindowType>(windowType), 32);
        for (std::size_t n = 0; n < expected.size(); ++n)
            expected[n] *= window[n];
        EXPECT_TRUE(HasSameBits(expected, Taps(31, BandPass, windowType, 0.3, 0.5).data()))
            << windowType;
    }
}

TEST(CreateFirByFS, IsSymmetricToRoundingForEvenOrders)
{
    for (const int filterType : {LowPass, HighPass, BandPass, BandStop}) {
        const std::vector<double> taps = Taps(64, filterType, Hamming, 0.2, 0.45);
        for (std::size_t n = 0; n < taps.size(); ++n) {
            // Angles up to 32 pi, wrong by up to three half units of their last bit, and ten stages of
            // butterflies on values up to 1.
            EXPECT_NEAR(taps[n], taps[64 - n], (32 * 3.15 + 10) * epsilon)
                << filterType << ", tap " << n;
        }
    }
}

TEST(CreateFirByFS, KeepsTwoEqualTapsForOrderOne)
{
    const std::vector<double> taps = Taps(1, LowPass, Rectangle, 0.2, 0.3);
    EXPECT_NEAR(taps[0], taps[1], 10 * epsilon);
    // The impulse response of the trapezoid, half a sample off its middle: 0.25 sinc(0.25 t) sinc(0.1
    // t) with t = 1/2. Positions are rounded down, so its area is known to a step of the grid.
    const auto sinc = [](double t) { return std::sin(std::acos(-1.0) * t) / (std::acos(-1.0) * t); };
    EXPECT_NEAR(taps[0], 0.25 * sinc(0.125) * sinc(0.05), 1.0 / 512.0);
}

TEST(CreateFirByFS, KeepsTheGainUnnormalised)
{
    const std::vector<double> taps = Taps(24, LowPass, Hamming, 0.2, 0.3);
    const double sum = std::accumulate(taps.begin(), taps.end(), 0.0);
    EXPECT_NEAR(sum, 1.0, 0.01);
    EXPECT_GT(std::abs(sum - 1.0), 1e-6);
}

} // namespace
} // namespace trelvanix
