#include "classic/equiripple_design.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "classic/equiripple_error.h"
#include "support/bits.h"

namespace trelvanix
{
namespace
{

using Row = std::vector<double>;
using testing::AmplitudeOf;
using testing::FindAlternation;
using testing::HasSameBits;
using testing::IsNear;
using testing::SameBits;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr int intMax = std::numeric_limits<int>::max();
constexpr int intMin = std::numeric_limits<int>::min();
constexpr int LowPass = 0, HighPass = 1, BandPass = 2, BandStop = 3;

Row Taps(int order, int filterType, double wc1, double wc2)
{
    const ResultArray taps = CreateFirByRemez(order, filterType, wc1, wc2);
    return {taps.get(), taps.get() + order + 1};
}

Row TapsOf(int order, Row edges, const Row& amplitudes, const Row& weights = {})
{
    const ResultArray taps =
        DesignEquiripple(order, edges.data(), amplitudes.data(), static_cast<int>(edges.size()),
                         weights.empty() ? nullptr : weights.data(), static_cast<int>(weights.size()));
    return {taps.get(), taps.get() + order + 1};
}

bool AllNotANumber(const Row& taps)
{
    for (const double tap : taps) {
        if (!std::isnan(tap))
            return false;
    }
    return !taps.empty();
}

::testing::AssertionResult IsSymmetric(const Row& taps)
{
    for (std::size_t i = 0; i < taps.size(); ++i) {
        if (!SameBits(taps[i], taps[taps.size() - 1 - i]))
            return ::testing::AssertionFailure() << "tap " << i << " of " << taps.size();
    }
    return ::testing::AssertionSuccess();
}

// ---- Printed designs ---------------------------------------------------------------------------

// The examples that come with the program of McClellan, Parks & Rabiner (Programs for Digital Signal
// Processing, IEEE Press 1979, program 5.1), printed with eight digits from single precision: taps up
// to 0.3 carry some units of 2^-26 each.
constexpr double printedPrecision = 1e-7;

TEST(DesignEquiripple, MeetsThePrintedLowPass)
{
    const Row expected = {0.33740917e-02,  0.14938299e-01,  0.10569360e-01,  0.25415067e-02,
                          -0.15929992e-01, -0.34085343e-01, -0.38112177e-01, -0.14629169e-01,
                          0.40089541e-01,  0.11540713e+00,  0.18850752e+00,  0.23354606e+00};
    const Row taps = TapsOf(23, {0.0, 0.16, 0.32, 1.0}, {1.0, 1.0, 0.0, 0.0});
    EXPECT_TRUE(IsNear(expected, taps.data(), printedPrecision));
    EXPECT_TRUE(IsSymmetric(taps));
}

TEST(DesignEquiripple, MeetsThePrintedBandPass)
{
    const Row expected = {-0.57534121e-02, 0.99027198e-03,  0.75733545e-02,  -0.65141192e-02,
                          0.13960525e-01,  0.22951469e-02,  -0.19994067e-01, 0.71369560e-02,
                          -0.39657363e-01, 0.11260114e-01,  0.66233643e-01,  -0.10497223e-01,
                          0.85136133e-01,  -0.12024993e+00, -0.29678577e+00, 0.30410917e+00};
    const Row taps =
        TapsOf(31, {0.0, 0.2, 0.4, 0.7, 0.85, 1.0}, {0.0, 0.0, 1.0, 1.0, 0.0, 0.0}, {10.0, 1.0, 10.0});
    EXPECT_TRUE(IsNear(expected, taps.data(), printedPrecision));
}

// ---- Properties --------------------------------------------------------------------------------

TEST(CreateFirByRemez, GivesTapsThatAreSymmetricToTheLastBit)
{
    for (const int order : {0, 1, 2, 3, 20, 21, 57, 100}) {
        for (const int filterType : {LowPass, HighPass, BandPass, BandStop}) {
            const Row taps = Taps(order, filterType, 0.4, 0.55);
            EXPECT_EQ(taps.size(), static_cast<std::size_t>(order) + 1);
            EXPECT_TRUE(IsSymmetric(taps)) << order << ", " << filterType;
        }
    }
}

TEST(CreateFirByRemez, GivesALowPassEqualRipples)
{
    const Row taps = Taps(20, LowPass, 0.4, 0.5);
    const double pass = FindAlternation(taps, {{0.0, 0.4, 1.0, 1.0}}, 2000.0, 0.0).largest;
    const double stop = FindAlternation(taps, {{0.5, 1.0, 0.0, 1.0}}, 2000.0, 0.0).largest;
    // Both are the deviation, but for what lies between the points of the grid: 2 percent.
    EXPECT_NEAR(pass, stop, 0.02 * stop);
    // 0.055 (25 dB): the estimate of Herrmann, Rabiner & Chan gives order 20 for it.
    EXPECT_NEAR(stop, 0.055, 0.0015);
}

TEST(DesignEquiripple, DividesTheRipplesByTheWeights)
{
    const Row taps = TapsOf(30, {0.0, 0.4, 0.5, 1.0}, {1.0, 1.0, 0.0, 0.0}, {1.0, 8.0});
    const double pass = FindAlternation(taps, {{0.0, 0.4, 1.0, 1.0}}, 3000.0, 0.0).largest;
    const double stop = FindAlternation(taps, {{0.5, 1.0, 0.0, 1.0}}, 3000.0, 0.0).largest;
    EXPECT_NEAR(pass / stop, 8.0, 0.02 * 8.0);
}

TEST(CreateFirByRemez, GivesAHalfBandFilterZerosAtEverySecondTap)
{
    // Edges symmetric about a half, equal weights, order 4k + 2: amplitude minus a half is odd about
    // the middle of the axis. The grid is not quite, and its place decides on some percent of the
    // ripple.
    const Row taps = Taps(30, LowPass, 0.4, 0.6);
    const double ripple = FindAlternation(taps, {{0.6, 1.0, 0.0, 1.0}}, 3000.0, 0.0).largest;
    EXPECT_NEAR(taps[15], 0.5, 0.02 * ripple);
    for (std::size_t n = 1; n < 15; n += 2)
        EXPECT_NEAR(taps[n], 0.0, 0.02 * ripple) << n;
}

TEST(CreateFirByRemez, KeepsHalfTheGainForOrderOne)
{
    // 2 h cos(pi f / 2) has equal errors at the edges 0.4 and 0.6 for the h below; the taps are half of it.
    const double pi = std::acos(-1.0);
    const double h = 0.5 / (std::cos(0.2 * pi) + std::cos(0.3 * pi));
    const double epsilon = std::numeric_limits<double>::epsilon();
    EXPECT_TRUE(IsNear({h / 2.0, h / 2.0}, Taps(1, LowPass, 0.4, 0.6).data(), 8 * epsilon));
}

TEST(DesignEquiripple, KeepsTheMeanWithTheNextBandsAmplitudeForABandWithoutWidth)
{
    // The band {0} has the amplitude 1, the next one starts with 0: what is approximated there is 1/2,
    // whatever the band's own lower amplitude. Nothing follows a last band, which has its upper amplitude.
    const Row first = TapsOf(20, {0.0, 0.0, 0.4, 1.0}, {-7.0, 1.0, 0.0, 0.0});
    EXPECT_TRUE(HasSameBits(TapsOf(20, {0.0, 0.0, 0.4, 1.0}, {1.0, 1.0, 0.0, 0.0}), first.data()));
    double atZero = 0.0;
    for (const double tap : first)
        atZero += tap;
    EXPECT_LT(std::abs(atZero - 0.5), 0.05);
    const Row last = TapsOf(20, {0.0, 0.4, 1.0, 1.0}, {0.0, 0.0, -7.0, 1.0});
    EXPECT_TRUE(HasSameBits(TapsOf(20, {0.0, 0.4, 1.0, 1.0}, {0.0, 0.0, 0.25, 1.0}), last.data()));
}

TEST(CreateFirByRemez, TakesTouchingBandsForAnOrdinaryRequest)
{
    const Row taps = Taps(20, LowPass, 0.0, 0.45);
    EXPECT_TRUE(IsSymmetric(taps));
    EXPECT_TRUE(HasSameBits(TapsOf(20, {0.0, 0.45, 0.45, 1.0}, {1.0, 1.0, 0.0, 0.0}), taps.data()));
    // 11 functions, a step of 1 / 176: the pass band's last point of its own is 78 / 176, the edge
    // belongs to the stop band. Both carry the whole deviation, close to a half.
    const double deviation = AmplitudeOf(taps, 0.45);
    EXPECT_GT(deviation, 0.4);
    EXPECT_LT(deviation, 0.5);
    EXPECT_NEAR(AmplitudeOf(taps, 78.0 / 176.0), 1.0 - deviation, 1e-12);
    EXPECT_TRUE(IsSymmetric(TapsOf(20, {0.0, 0.4, 0.4, 1.0}, {1.0, 1.0, 0.0, 0.0})));
}

TEST(CreateFirByRemez, MakesTheBandStopTheComplementOfTheBandPass)
{
    // Same edges and grid, complementary amplitudes, equal weights: the errors are each other's
    // negative, so the taps add up to a unit impulse. Both are found by sums of some hundred terms with
    // an amplification by the Lagrange weights.
    const Row pass = Taps(20, BandPass, 0.3, 0.6);
    const Row stop = Taps(20, BandStop, 0.3, 0.6);
    for (std::size_t n = 0; n < pass.size(); ++n)
        EXPECT_NEAR(pass[n] + stop[n], n == 10 ? 1.0 : 0.0, 1e-12) << n;
}

TEST(CreateFirByRemez, GivesAnOddOrderAZeroAtNyquist)
{
    for (const int order : {3, 21, 40 + 1}) {
        // The taps cancel in pairs, whose signs alternate: rounding of a sum of as many terms.
        const Row taps = Taps(order, LowPass, 0.3, 0.5);
        double sum = 0.0;
        double sign = 1.0;
        for (const double tap : taps) {
            sum += sign * tap;
            sign = -sign;
        }
        EXPECT_NEAR(sum, 0.0, (order + 1) * std::numeric_limits<double>::epsilon());
    }
}

TEST(CreateFirByRemez, TakesAnUnknownTypeForALowPass)
{
    for (const int filterType : {4, -1, intMax})
        EXPECT_TRUE(HasSameBits(Taps(20, LowPass, 0.4, 0.5), Taps(20, filterType, 0.4, 0.5).data()));
}

TEST(DesignEquiripple, KeepsIgnoringWeightsOfAnotherCount)
{
    const Row edges = {0.0, 0.4, 0.5, 1.0};
    const Row amplitudes = {1.0, 1.0, 0.0, 0.0};
    EXPECT_TRUE(HasSameBits(TapsOf(20, edges, amplitudes),
                            TapsOf(20, edges, amplitudes, {1.0, 8.0, 3.0}).data()));
}

TEST(DesignEquiripple, KeepsHalvingTheEdges)
{
    Row edges = {0.0, 0.4, 0.5, 1.0};
    const Row amplitudes = {1.0, 1.0, 0.0, 0.0};
    DesignEquiripple(20, edges.data(), amplitudes.data(), 4, nullptr, 0);
    EXPECT_EQ(edges, (Row{0.0, 0.2, 0.25, 0.5}));
}

// ---- Bad input ---------------------------------------------------------------------------------

TEST(CreateFirByRemez, EndsForOrdersFromMinusOneDown)
{
    const ResultArray empty = CreateFirByRemez(-1, LowPass, 0.4, 0.5);
    EXPECT_NE(empty, nullptr);
    for (const int order : {-2, -3, intMin, intMin + 1, intMax})
        EXPECT_THROW(CreateFirByRemez(order, LowPass, 0.4, 0.5), std::bad_array_new_length) << order;
}

TEST(CreateFirByRemez, ThrowsLengthErrorForAGridTooLarge)
{
    EXPECT_THROW(CreateFirByRemez(20, LowPass, 0.4, 1e9), std::length_error);
    EXPECT_THROW(CreateFirByRemez(20, BandPass, -1e200, 0.5), std::length_error);
    EXPECT_THROW(CreateFirByRemez(40000000, LowPass, 0.001, 0.002), std::length_error);
}

TEST(CreateFirByRemez, RefusesWc2ZeroBesideAnotherWc1)
{
    for (const int filterType : {LowPass, HighPass, 9}) {
        for (const int order : {20, -1, -5, intMax}) {
            try {
                CreateFirByRemez(order, filterType, 0.3, 0.0);
                FAIL() << "accepted";
            } catch (const std::invalid_argument& error) {
                EXPECT_STREQ(error.what(), "wc2 should not be '0' when wc1 is not '0'");
            }
        }
    }
}

TEST(CreateFirByRemez, GivesNotANumberForEdgesThatAreNotFinite)
{
    for (const double bad : {nan, infinity, -infinity}) {
        for (const int filterType : {LowPass, HighPass, BandPass, BandStop}) {
            EXPECT_TRUE(AllNotANumber(Taps(8, filterType, bad, 0.5)));
            EXPECT_TRUE(AllNotANumber(Taps(7, filterType, 0.5, bad)));
        }
        EXPECT_TRUE(AllNotANumber(Taps(8, LowPass, 0.0, bad)));
    }
}

TEST(DesignEquiripple, RefusesEdgesThatDoNotRunFromZeroToNyquist)
{
    const Row amplitudes = {1.0, 1.0, 0.0, 0.0};
    for (const Row& bad : {Row{0.1, 0.4, 0.5, 1.0}, Row{0.0, 0.4, 0.5, 0.9}, Row{0.0, 0.4, 0.5, nan}}) {
        Row edges = bad;
        EXPECT_THROW(DesignEquiripple(20, edges.data(), amplitudes.data(), 4, nullptr, 0),
                     std::invalid_argument);
        EXPECT_EQ(edges[1], 0.4);
    }
}

TEST(CreateFirByRemez, EndsForEveryPairOfOddEdges)
{
    const Row odd = {
        0.0,  -0.0, 5e-324,  1e-300,      1e-17, 1e-9, 0.01, 0.4,   std::nextafter(0.4, 1.0),
        0.5,  0.99, 1.0,     1.0 + 1e-15, 1.5,   2.0,  -0.3, -1e-9, -2.0,
        50.0, nan,  infinity};
    for (const double wc1 : odd) {
        for (const double wc2 : odd) {
            for (const int filterType : {LowPass, HighPass, BandPass, BandStop}) {
                for (int order = 0; order <= 5; ++order) {
                    try {
                        EXPECT_TRUE(IsSymmetric(Taps(order, filterType, wc1, wc2)));
                    } catch (const std::invalid_argument&) {
                        EXPECT_EQ(wc2, 0.0);
                    } catch (const std::length_error&) {
                        // A band of one denormal: no step fits into it.
                        EXPECT_TRUE(wc1 == 5e-324 || wc2 == 5e-324) << wc1 << ", " << wc2;
                    }
                }
            }
        }
    }
}

} // namespace
} // namespace trelvanix
