#include "classic/equiripple_order.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "classic/equiripple_error.h"
#include "fir/order_estimate.h"
#include "support/bits.h"

namespace trelvanix
{
namespace
{

using Row = std::vector<double>;
using testing::FindAlternation;
using testing::HasSameBits;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr int LowPass = 0, HighPass = 1, BandPass = 2, BandStop = 3;
constexpr int untouched = -77;

constexpr const char* twoMessage = "Remezord Parameter Error: LowPass or  HighPass maximum allowable "
                                   "deviation length 'ndev' should be 2 ";
constexpr const char* threeMessage = "Remezord Parameter Error: BandPass or BandStop maximum allowable "
                                     "deviation length 'ndev' should be 3 ";
constexpr const char* orderMessage = "Remezord Parameter Error: the transition edges and deviations "
                                     "give no finite order ";

RemezordResult Estimate(int filterType, const std::array<double, 4>& f, Row dev)
{
    return Remezord(filterType, f[0], f[1], f[2], f[3], dev.data(), static_cast<int>(dev.size()));
}

struct Design {
    int order = untouched;
    Row taps;
};

Design DesignFrom(int filterType, const std::array<double, 4>& f, Row dev)
{
    Design design;
    const ResultArray taps = CreateFirByRemezord(filterType, f[0], f[1], f[2], f[3], dev.data(),
                                                 static_cast<int>(dev.size()), &design.order);
    design.taps.assign(taps.get(), taps.get() + design.order + 1);
    return design;
}

// What a refused call leaves behind: the message; *order must be as it was.
std::string Refusal(int filterType, const std::array<double, 4>& f, Row dev)
{
    int order = untouched;
    try {
        CreateFirByRemezord(filterType, f[0], f[1], f[2], f[3], dev.data(),
                            static_cast<int>(dev.size()), &order);
    } catch (const std::invalid_argument& error) {
        EXPECT_EQ(order, untouched);
        return error.what();
    }
    return "accepted";
}

// ---- Estimate ----------------------------------------------------------------------------------

// ---- Order and bands ---------------------------------------------------------------------------

TEST(Remezord, IsReadyForALowPass)
{
    const RemezordResult r = Estimate(LowPass, {0.4, 0.5, 0.0, 0.0}, {0.01, 0.001});
    EXPECT_EQ(r.order, 51);
    EXPECT_EQ(r.edges, (Row{0.0, 0.4, 0.5, 1.0}));
    EXPECT_EQ(r.amplitudes, (Row{1.0, 1.0, 0.0, 0.0}));
    EXPECT_EQ(r.weights, (Row{1.0, 0.01 / 0.001}));
}

TEST(Remezord, RaisesAnOddOrderOfAHighPass)
{
    // The deviations change places in the formula: 51.07 taps or so, order 51, made even.
    const RemezordResult r = Estimate(HighPass, {0.4, 0.5, 0.0, 0.0}, {0.01, 0.001});
    EXPECT_EQ(r.order, 52);
    EXPECT_EQ(r.amplitudes, (Row{0.0, 0.0, 1.0, 1.0}));
    // An even one stays: some width between gives it.
    for (int step = 0; step < 30; ++step) {
        const double f2 = 0.5 + 0.003 * step;
        const Row dev = {0.01, 0.001};
        const int low = Estimate(LowPass, {0.4, f2, 0.0, 0.0}, dev).order;
        const int high = Estimate(HighPass, {0.4, f2, 0.0, 0.0}, dev).order;
        EXPECT_EQ(high, low + low % 2) << f2;
    }
}

TEST(Remezord, TakesTheTransitionThatNeedsMoreTapsOfABandPass)
{
    const Row dev = {0.001, 0.01, 0.002};
    const RemezordResult r = Estimate(BandPass, {0.2, 0.3, 0.6, 0.68}, dev);
    EXPECT_EQ(r.edges, (Row{0.0, 0.2, 0.3, 0.6, 0.68, 1.0}));
    EXPECT_EQ(r.amplitudes, (Row{0.0, 0.0, 1.0, 1.0, 0.0, 0.0}));
    EXPECT_EQ(r.weights, (Row{10.0, 1.0, 5.0}));
    // The middle band's deviation comes first in both.
    const double lower = LowpassOrderEstimate(0.15, 0.1, 0.01, 0.001);
    const double upper = LowpassOrderEstimate(0.34, 0.3, 0.01, 0.002);
    EXPECT_EQ(r.order, static_cast<int>(std::ceil(std::fmax(lower, upper))) - 1);
    const RemezordResult mirrored = Estimate(BandPass, {0.32, 0.4, 0.7, 0.8}, {0.002, 0.01, 0.001});
    EXPECT_EQ(mirrored.order, r.order);
}

TEST(Remezord, KeepsTakingABandStopForABandPass)
{
    const Design pass = DesignFrom(BandPass, {0.2, 0.3, 0.6, 0.7}, {0.01, 0.02, 0.01});
    const Design stop = DesignFrom(BandStop, {0.2, 0.3, 0.6, 0.7}, {0.01, 0.02, 0.01});
    EXPECT_EQ(pass.order, stop.order);
    EXPECT_TRUE(HasSameBits(pass.taps, stop.taps.data()));
}

TEST(Remezord, NormalisesTheDeviations)
{
    Row dev = {0.01, 0.001};
    Remezord(LowPass, 0.4, 0.5, 0.0, 0.0, dev.data(), 2);
    EXPECT_EQ(dev, (Row{0.01, 0.001}));
}

TEST(Remezord, KeepsEstimatesBelowOneForEasyRequests)
{
    // D = -0.4278 for deviations of 1: fewer than no taps.
    EXPECT_EQ(Estimate(LowPass, {0.0, 1.0, 0.0, 0.0}, {1.0, 1.0}).order, -6);
    // The band types start from 0 taps, order -1: an empty array.
    const Design empty = DesignFrom(BandPass, {0.1, 0.4, 0.6, 0.9}, {1.0, 1.0, 1.0});
    EXPECT_EQ(empty.order, -1);
    EXPECT_TRUE(empty.taps.empty());
}

TEST(Remezord, RaisesNegativeOddOrdersOfAHighPassToo)
{
    for (int step = 4; step <= 20; ++step) {
        const double f2 = 0.05 * step;
        const RemezordResult low = Estimate(LowPass, {0.0, f2, 0.0, 0.0}, {1.0, 1.0});
        const RemezordResult high = Estimate(HighPass, {0.0, f2, 0.0, 0.0}, {1.0, 1.0});
        EXPECT_LT(low.order, 0);
        EXPECT_EQ(high.order, low.order % 2 == 0 ? low.order : low.order + 1);
    }
}

// ---- Design ------------------------------------------------------------------------------------

TEST(CreateFirByRemezord, NearlyMeetsTheDeviationsOfALowPass)
{
    const Design design = DesignFrom(LowPass, {0.4, 0.5, 0.0, 0.0}, {0.01, 0.001});
    EXPECT_EQ(design.order, 51);
    ASSERT_EQ(design.taps.size(), 52U);
    const double pass = FindAlternation(design.taps, {{0.0, 0.4, 1.0, 1.0}}, 5000.0, 0.0).largest;
    const double stop = FindAlternation(design.taps, {{0.5, 1.0, 0.0, 1.0}}, 5000.0, 0.0).largest;
    // The estimate is good to one or two taps, each worth some 10 percent of ripple here.
    EXPECT_NEAR(pass, 0.01, 0.002);
    EXPECT_NEAR(stop, 0.001, 0.0002);
    // Weighted 1 to 10: the ratio is that of the deviations, within the 2 percent of the grid.
    EXPECT_NEAR(pass / stop, 10.0, 0.2);
}

TEST(CreateFirByRemezord, WritesTheOrderBeforeTheDesignRuns)
{
    Row dev = {1.0, 1.0};
    int order = untouched;
    EXPECT_THROW(CreateFirByRemezord(LowPass, 0.0, 1.0, 0.0, 0.0, dev.data(), 2, &order),
                 std::bad_array_new_length);
    EXPECT_EQ(order, -6);
}

// ---- Errors ------------------------------------------------------------------------------------

TEST(CreateFirByRemezord, ChecksTheFilterTypeFirst)
{
    for (const int filterType : {4, -1, 1000}) {
        EXPECT_EQ(Refusal(filterType, {0.4, 0.5, 0.6, 0.7}, {0.01, 0.01}), "Undefined filter types");
        EXPECT_EQ(Refusal(filterType, {nan, 0.5, 0.6, 0.7}, {}), "Undefined filter types");
    }
}

TEST(CreateFirByRemezord, RefusesADeviationCountThatDoesNotSuitTheType)
{
    for (const int filterType : {LowPass, HighPass}) {
        EXPECT_EQ(Refusal(filterType, {0.4, 0.5, 0.0, 0.0}, {0.01, 0.01, 0.01}), twoMessage);
        EXPECT_EQ(Refusal(filterType, {0.4, 0.4, 0.0, 0.0}, {}), twoMessage);
    }
    for (const int filterType : {BandPass, BandStop}) {
        EXPECT_EQ(Refusal(filterType, {0.2, 0.3, 0.4, 0.5}, {0.01, 0.01}), threeMessage);
        EXPECT_EQ(Refusal(filterType, {0.2, 0.3, 0.4, 0.5}, {0.01, 0.01, 0.01, 0.01}), threeMessage);
    }
}

TEST(CreateFirByRemezord, LeavesTheDeviationsOfARefusedCount)
{
    Row dev = {0.01, -0.0, nan};
    EXPECT_THROW(Remezord(LowPass, 0.4, 0.5, 0.0, 0.0, dev.data(), 3), std::invalid_argument);
    EXPECT_EQ(dev[0], 0.01);
    EXPECT_TRUE(std::signbit(dev[1]));
    EXPECT_TRUE(std::isnan(dev[2]));
}

TEST(CreateFirByRemezord, RefusesAnEstimateThatIsNotFinite)
{
    for (const int filterType : {LowPass, HighPass}) {
        EXPECT_EQ(Refusal(filterType, {0.4, 0.4, 0.0, 0.0}, {0.01, 0.01}), orderMessage);
        for (const double bad : {nan, infinity, -infinity}) {
            EXPECT_EQ(Refusal(filterType, {bad, 0.5, 0.0, 0.0}, {0.01, 0.01}), orderMessage);
            EXPECT_EQ(Refusal(filterType, {0.4, 0.5, 0.0, 0.0}, {bad, 0.01}), orderMessage);
        }
        for (const double bad : {0.0, -0.0, -0.01}) {
            EXPECT_EQ(Refusal(filterType, {0.4, 0.5, 0.0, 0.0}, {bad, 0.01}), orderMessage);
            EXPECT_EQ(Refusal(filterType, {0.4, 0.5, 0.0, 0.0}, {0.01, bad}), orderMessage);
        }
    }
    // The third and fourth edge are not looked at there.
    EXPECT_EQ(Refusal(LowPass, {0.4, 0.5, nan, infinity}, {0.01, 0.01}), "accepted");
    for (const int filterType : {BandPass, BandStop}) {
        for (std::size_t edge = 0; edge < 4; ++edge) {
            std::array<double, 4> f = {0.2, 0.3, 0.6, 0.7};
            f[edge] = nan;
            EXPECT_EQ(Refusal(filterType, f, {0.01, 0.01, 0.01}), orderMessage) << edge;
        }
        EXPECT_EQ(Refusal(filterType, {0.3, 0.3, 0.6, 0.7}, {0.01, 0.01, 0.01}), orderMessage);
        EXPECT_EQ(Refusal(filterType, {0.2, 0.3, 0.7, 0.7}, {0.01, 0.01, 0.01}), orderMessage);
        for (std::size_t band = 0; band < 3; ++band) {
            for (const double bad : {nan, 0.0, -0.5}) {
                Row dev = {0.01, 0.01, 0.01};
                dev[band] = bad;
                EXPECT_EQ(Refusal(filterType, {0.2, 0.3, 0.6, 0.7}, dev), orderMessage);
            }
        }
    }
}

TEST(CreateFirByRemezord, RefusesAnEstimateBeyondAnInt)
{
    for (const int filterType : {LowPass, HighPass}) {
        EXPECT_EQ(Refusal(filterType, {0.4, 0.4 + 1e-12, 0.0, 0.0}, {0.01, 0.01}), orderMessage);
        // 1 - 11 * 5e9: too small for an int.
        EXPECT_EQ(Refusal(filterType, {0.0, 1e10, 0.0, 0.0}, {0.01, 0.01}), orderMessage);
    }
}

// The edges of a transition from 0 with the estimated order: found by bisection, each width giving one.
std::array<double, 4> EdgesForOrder(double order)
{
    double narrow = 1e-6;
    double wide = 1e-2;
    for (int step = 0; step < 200; ++step) {
        const double middle = 0.5 * (narrow + wide);
        const double taps = LowpassOrderEstimate(middle, 0.0, 0.01, 0.01);
        (std::ceil(taps) - 1.0 > order ? narrow : wide) = middle;
    }
    return {0.0, 2.0 * wide, 0.0, 0.0};
}

TEST(Remezord, TakesEstimatesUpTo65536)
{
    EXPECT_EQ(Estimate(LowPass, EdgesForOrder(65536.0), {0.01, 0.01}).order, 65536);
    EXPECT_EQ(Estimate(LowPass, EdgesForOrder(65535.0), {0.01, 0.01}).order, 65535);
    EXPECT_EQ(Estimate(HighPass, EdgesForOrder(65535.0), {0.01, 0.01}).order, 65536);
}

TEST(CreateFirByRemezord, RefusesAnEstimateAbove65536)
{
    for (const int filterType : {LowPass, HighPass})
        EXPECT_EQ(Refusal(filterType, EdgesForOrder(65537.0), {0.01, 0.01}), orderMessage);
}

TEST(CreateFirByRemezord, GivesNotANumberForAnInfiniteEdgeBesideAFiniteEstimate)
{
    const Design design = DesignFrom(BandPass, {-infinity, 0.3, 0.6, 0.7}, {0.01, 0.01, 0.01});
    EXPECT_GT(design.order, 0);
    for (const double tap : design.taps)
        EXPECT_TRUE(std::isnan(tap));
}

} // namespace
} // namespace trelvanix
