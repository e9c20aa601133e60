#include "classic/band_edges.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

namespace trelvanix
{
namespace
{

using Row = std::vector<double>;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

Breakpoints Convert(int filterType, double wc1, double wc2)
{
    return BandEdgesToBreakpoints(static_cast<FilterType>(filterType), wc1, wc2);
}

TEST(BandEdgesToBreakpoints, JumpsDownAndUpForABandStop)
{
    const Breakpoints b = Convert(3, 0.3, 0.6);
    EXPECT_EQ(b.frequencies, (Row{0.0, 0.3, 0.3, 0.6, 0.6, 1.0}));
    EXPECT_EQ(b.amplitudes, (Row{1.0, 1.0, 0.0, 0.0, 1.0, 1.0}));
}

TEST(BandEdgesToBreakpoints, HasTheBandStopsFrequenciesAndTheComplementForABandPass)
{
    const Breakpoints b = Convert(2, 0.3, 0.6);
    EXPECT_EQ(b.frequencies, Convert(3, 0.3, 0.6).frequencies);
    EXPECT_EQ(b.amplitudes, (Row{0.0, 0.0, 1.0, 1.0, 0.0, 0.0}));
}

TEST(BandEdgesToBreakpoints, HasATransitionBetweenTwoEdgesForLowAndHighPass)
{
    EXPECT_EQ(Convert(0, 0.4, 0.5).frequencies, (Row{0.0, 0.4, 0.5, 1.0}));
    EXPECT_EQ(Convert(0, 0.4, 0.5).amplitudes, (Row{1.0, 1.0, 0.0, 0.0}));
    EXPECT_EQ(Convert(1, 0.4, 0.5).frequencies, (Row{0.0, 0.4, 0.5, 1.0}));
    EXPECT_EQ(Convert(1, 0.4, 0.5).amplitudes, (Row{0.0, 0.0, 1.0, 1.0}));
}

TEST(BandEdgesToBreakpoints, JumpsAtWc2WhenWc1IsZeroForLowAndHighPass)
{
    for (const double zero : {0.0, -0.0}) {
        EXPECT_EQ(Convert(0, zero, 0.5).frequencies, (Row{0.0, 0.5, 0.5, 1.0}));
        EXPECT_EQ(Convert(1, zero, 0.5).frequencies, (Row{0.0, 0.5, 0.5, 1.0}));
        EXPECT_EQ(Convert(0, zero, 0.0).frequencies, (Row{0.0, 0.0, 0.0, 1.0}));
    }
}

TEST(BandEdgesToBreakpoints, KeepsRefusingWc2ZeroOnlyBesideAnotherWc1ForLowAndHighPass)
{
    for (const int filterType : {0, 1, 7, -1}) {
        for (const double wc1 : {0.3, -0.3, 1e-300, infinity, nan}) {
            try {
                Convert(filterType, wc1, 0.0);
                FAIL() << "accepted type " << filterType << ", wc1 " << wc1;
            } catch (const std::invalid_argument& error) {
                EXPECT_STREQ(error.what(), "wc2 should not be '0' when wc1 is not '0'");
            }
        }
    }
    EXPECT_EQ(Convert(2, 0.3, 0.0).frequencies, (Row{0.0, 0.3, 0.3, 0.0, 0.0, 1.0}));
}

TEST(BandEdgesToBreakpoints, TakesNotANumberForNoZero)
{
    const Breakpoints b = Convert(0, nan, 0.5);
    EXPECT_TRUE(b.frequencies[1] != b.frequencies[1]);
    EXPECT_EQ(b.frequencies[2], 0.5);
}

TEST(BandEdgesToBreakpoints, TakesAnUnknownTypeForALowPass)
{
    for (const int filterType : {4, 7, -1, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(Convert(filterType, 0.4, 0.5).frequencies, Convert(0, 0.4, 0.5).frequencies);
        EXPECT_EQ(Convert(filterType, 0.4, 0.5).amplitudes, Convert(0, 0.4, 0.5).amplitudes);
    }
}

TEST(BreakpointSteps, EndWithZero)
{
    EXPECT_EQ(BreakpointSteps({0.0, 0.25, 0.25, 1.0}), (Row{0.25, 0.0, 0.75, 0.0}));
    EXPECT_EQ(BreakpointSteps({0.5}), (Row{0.0}));
    EXPECT_EQ(BreakpointSteps({}), Row{});
}

TEST(AreFinite, LooksAtEveryFrequency)
{
    EXPECT_TRUE(AreFinite(Row{0.0, -5.0, 1e308}.data(), 3));
    for (const double bad : {nan, infinity, -infinity}) {
        EXPECT_FALSE(AreFinite(Row{bad, 0.0, 1.0}.data(), 3));
        EXPECT_FALSE(AreFinite(Row{0.0, 1.0, bad}.data(), 3));
    }
}

} // namespace
} // namespace trelvanix
