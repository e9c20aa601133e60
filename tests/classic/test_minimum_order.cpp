#include "classic/minimum_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "support/bits.h"
#include "trelvanix.h"

namespace trelvanix
{
namespace
{

using testing::HasSameBits;
using Row = std::vector<double>;

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double untouched = 99.0;
constexpr double pi = 3.141592653589793;

enum Family { butterworth, chebyshev1, chebyshev2, elliptic, bessel };
constexpr Family computed[] = {butterworth, chebyshev1, chebyshev2, elliptic};

struct Estimate {
    int order;
    Row wn;
};

Estimate MinimumOrder(int designType, const Row& edges, double rp, double rs)
{
    Estimate estimate = {-77, Row(edges.size() / 2, untouched)};
    ::FilterMinimumOrder(designType, edges.data(), static_cast<int>(edges.size()), rp, rs,
                         &estimate.order, estimate.wn.data());
    return estimate;
}

TEST(FilterMinimumOrder, OfBesselIsFixed)
{
    const Estimate two = MinimumOrder(bessel, {0.2, 0.3}, 3.0, 40.0);
    EXPECT_EQ(two.order, 1);
    EXPECT_EQ(two.wn, Row{0.1});
    const Estimate four = MinimumOrder(bessel, {0.2, 0.5, 0.1, 0.6}, 3.0, 40.0);
    EXPECT_EQ(four.order, 1);
    EXPECT_EQ(four.wn, (Row{untouched, untouched}));
}

TEST(FilterMinimumOrder, WritesNothingForOtherFamilies)
{
    for (const int designType : {5, -1, INT_MAX, INT_MIN}) {
        const Estimate estimate = MinimumOrder(designType, {0.2, 0.3}, 3.0, 40.0);
        EXPECT_EQ(estimate.order, -77);
        EXPECT_EQ(estimate.wn, Row{untouched});
    }
}

TEST(FilterMinimumOrder, OfAButterworthLowpassFollowsTheFormula)
{
    const double WA = std::tan(0.15 * pi) / std::tan(0.1 * pi);
    const double exact = std::log10((1e4 - 1.0) / (std::pow(10.0, 0.3) - 1.0)) / (2.0 * std::log10(WA));
    const Estimate estimate = MinimumOrder(butterworth, {0.2, 0.3}, 3.0, 40.0);
    EXPECT_EQ(estimate.order, static_cast<int>(std::ceil(exact)));
    EXPECT_EQ(estimate.order, 11);
    // At the natural frequency the filter is 3 dB down such that the stop edge has 40 dB exactly.
    const double ratio = std::tan(0.15 * pi) / std::tan(estimate.wn[0] * pi / 2.0);
    EXPECT_NEAR(10.0 * std::log10(1.0 + std::pow(ratio, 22.0)), 40.0, 1e-10);
}

TEST(FilterMinimumOrder, MirrorsBetweenLowpassAndHighpass)
{
    for (const Family family : computed) {
        const Estimate low = MinimumOrder(family, {0.2, 0.3}, 1.0, 50.0);
        const Estimate high = MinimumOrder(family, {0.8, 0.7}, 1.0, 50.0);
        EXPECT_EQ(low.order, high.order) << family;
        EXPECT_NEAR(low.wn[0], 1.0 - high.wn[0], 1e-14) << family;
    }
}

TEST(FilterMinimumOrder, MirrorsBetweenBandpassAndBandstop)
{
    // Edges that are symmetric about the centre sqrt(tan tan) leave the minimiser nothing to gain.
    const double centre = std::tan(0.2 * pi);
    const auto opposite = [=](double f) {
        return 2.0 / pi * std::atan(centre * centre / std::tan(f * pi / 2.0));
    };
    const Row inner = {0.3, opposite(0.3)};
    const Row outer = {0.25, opposite(0.25)};
    for (const Family family : computed) {
        const Estimate pass = MinimumOrder(family, {inner[0], inner[1], outer[0], outer[1]}, 1.0, 50.0);
        const Estimate stop = MinimumOrder(family, {outer[0], outer[1], inner[0], inner[1]}, 1.0, 50.0);
        EXPECT_EQ(pass.order, stop.order) << family;
        EXPECT_GT(pass.order, 2) << family;
        EXPECT_LT(pass.wn[0], pass.wn[1]) << family;
    }
}

TEST(FilterMinimumOrder, ReturnsTheEdgesOfTheFamilyAsTheyCame)
{
    const Row lowpass = {0.2, 0.3};
    EXPECT_EQ(MinimumOrder(chebyshev1, lowpass, 1.0, 40.0).wn, Row{0.2});
    EXPECT_EQ(MinimumOrder(elliptic, lowpass, 1.0, 40.0).wn, Row{0.2});
    EXPECT_EQ(MinimumOrder(chebyshev2, lowpass, 1.0, 40.0).wn, Row{0.3});
    // The pass edges of a bandstop are moved for the estimate alone.
    const Row bandstop = {0.1, 0.7, 0.3, 0.5};
    EXPECT_EQ(MinimumOrder(chebyshev1, bandstop, 1.0, 40.0).wn, (Row{0.1, 0.7}));
    EXPECT_EQ(MinimumOrder(elliptic, bandstop, 1.0, 40.0).wn, (Row{0.1, 0.7}));
    EXPECT_EQ(MinimumOrder(chebyshev2, bandstop, 1.0, 40.0).wn, (Row{0.3, 0.5}));
}

TEST(FilterMinimumOrder, MovesThePassEdgesOfALopsidedBandstop)
{
    // As they stand these edges have the selectivity of the lower transition; the upper one is wider.
    const Row edges = {0.1, 0.7, 0.3, 0.5};
    const auto w = [](double f) { return std::tan(f * pi / 2.0); };
    const double product = w(0.1) * w(0.7);
    const double width = w(0.7) - w(0.1);
    const double WA = std::min(std::fabs(width * w(0.3) / (w(0.3) * w(0.3) - product)),
                               std::fabs(width * w(0.5) / (w(0.5) * w(0.5) - product)));
    const double unmoved =
        std::acosh(std::sqrt((1e6 - 1.0) / (std::pow(10.0, 0.1) - 1.0))) / std::acosh(WA);
    EXPECT_LT(MinimumOrder(chebyshev1, edges, 1.0, 60.0).order, std::ceil(unmoved));
}

TEST(FilterMinimumOrder, NeedsLeastForEllipticAndMostForButterworth)
{
    for (const Row& edges :
         {Row{0.2, 0.3}, Row{0.3, 0.25}, Row{0.2, 0.5, 0.15, 0.6}, Row{0.1, 0.7, 0.3, 0.5}}) {
        const int maximallyFlat = MinimumOrder(butterworth, edges, 0.5, 60.0).order;
        const int chebyshev = MinimumOrder(chebyshev1, edges, 0.5, 60.0).order;
        const int cauer = MinimumOrder(elliptic, edges, 0.5, 60.0).order;
        EXPECT_EQ(MinimumOrder(chebyshev2, edges, 0.5, 60.0).order, chebyshev);
        EXPECT_LT(chebyshev, maximallyFlat);
        EXPECT_LT(cauer, chebyshev);
        EXPECT_GE(cauer, 2);
    }
}

TEST(FilterMinimumOrder, TakesDecibelsWithoutSignButForElliptic)
{
    for (const Family family : {butterworth, chebyshev1, chebyshev2}) {
        const Estimate expected = MinimumOrder(family, {0.2, 0.3}, 1.0, 40.0);
        const Estimate got = MinimumOrder(family, {0.2, 0.3}, -1.0, -40.0);
        EXPECT_EQ(got.order, expected.order);
        EXPECT_TRUE(HasSameBits(expected.wn, got.wn.data()));
    }
    EXPECT_EQ(MinimumOrder(elliptic, {0.2, 0.3}, -1.0, 40.0).order, INT_MIN);
}

TEST(FilterMinimumOrder, OfEqualEdgesIsTheMostNegativeInt)
{
    for (const Family family : {butterworth, chebyshev1, chebyshev2})
        EXPECT_EQ(MinimumOrder(family, {0.3, 0.3}, 1.0, 40.0).order, INT_MIN) << family;
    // K of k = 1 is infinite, K of k' = 0 counts as 0.
    EXPECT_EQ(MinimumOrder(elliptic, {0.3, 0.3}, 1.0, 40.0).order, INT_MIN);
}

TEST(FilterMinimumOrder, KeepsOrderZeroForANotANumberOrZeroEdge)
{
    // No transition is left that would need an order.
    for (const Family family : computed) {
        for (const double x : {nan, 0.0}) {
            for (const Row& edges : {Row{x, 0.3}, Row{0.3, x}, Row{x, x}})
                EXPECT_EQ(MinimumOrder(family, edges, 1.0, 40.0).order, 0) << family << " " << x;
        }
        for (const std::size_t i : {0U, 1U, 3U}) {
            Row bandstop = {0.1, 0.7, 0.3, 0.5};
            bandstop[i] = nan;
            EXPECT_EQ(MinimumOrder(family, bandstop, 1.0, 40.0).order, 0) << family << " " << i;
        }
        for (const std::size_t i : {0U, 1U}) {
            Row bandpass = {0.3, 0.5, 0.1, 0.7};
            bandpass[i] = nan;
            EXPECT_EQ(MinimumOrder(family, bandpass, 1.0, 40.0).order, 0) << family << " " << i;
        }
    }
}

TEST(FilterMinimumOrder, KeepsPassingOverATransitionOfABandpassWithoutANumber)
{
    // The transition on the other side decides, as it does where the missing one is very wide.
    for (const Family family : computed) {
        const int upper = MinimumOrder(family, {0.3, 0.5, 1e-6, 0.7}, 1.0, 40.0).order;
        const int lower = MinimumOrder(family, {0.3, 0.5, 0.1, 1.0 - 1e-6}, 1.0, 40.0).order;
        EXPECT_GT(upper, 1);
        EXPECT_GT(lower, 1);
        for (const double x : {nan, 0.0}) {
            EXPECT_EQ(MinimumOrder(family, {0.3, 0.5, x, 0.7}, 1.0, 40.0).order, upper) << family << x;
            EXPECT_EQ(MinimumOrder(family, {0.3, 0.5, 0.1, x}, 1.0, 40.0).order, lower) << family << x;
        }
    }
}

TEST(FilterMinimumOrder, KeepsTakingABandstopWithoutItsFirstStopEdgeForABandpass)
{
    // A stop edge inside of the pass band: the selectivity is below 1. The Butterworth formula is then
    // negative, the others are no number.
    EXPECT_LT(MinimumOrder(butterworth, {0.1, 0.7, nan, 0.5}, 1.0, 40.0).order, 0);
    for (const Family family : {chebyshev1, chebyshev2, elliptic})
        EXPECT_EQ(MinimumOrder(family, {0.1, 0.7, nan, 0.5}, 1.0, 40.0).order, INT_MIN) << family;
}

TEST(FilterMinimumOrder, EndsForEdgesWithoutSense)
{
    const double bad[] = {nan, inf, -inf, 0.0, 1.0, -0.3, 2.5, 1e300};
    for (const Family family : computed) {
        for (const double x : bad) {
            MinimumOrder(family, {x, 0.3}, 1.0, 40.0);
            MinimumOrder(family, {0.3, x}, 1.0, 40.0);
            for (std::size_t i = 0; i < 4; ++i) {
                Row bandstop = {0.1, 0.7, 0.3, 0.5};
                bandstop[i] = x;
                MinimumOrder(family, bandstop, 1.0, 40.0);
                Row bandpass = {0.3, 0.5, 0.1, 0.7};
                bandpass[i] = x;
                MinimumOrder(family, bandpass, 1.0, 40.0);
            }
            MinimumOrder(family, {0.1, 0.7, 0.3, 0.5}, x, 40.0);
            MinimumOrder(family, {0.1, 0.7, 0.3, 0.5}, 1.0, x);
        }
        // Reversed stop edges give the minimiser intervals that run backwards.
        MinimumOrder(family, {0.1, 0.7, 0.8, 0.05}, 1.0, 40.0);
        MinimumOrder(family, {0.7, 0.1, 0.8, 0.9}, 1.0, 40.0);
        // The modulus rounds to one.
        MinimumOrder(family, {0.3, std::nextafter(0.3, 1.0)}, 1.0, 40.0);
        MinimumOrder(family, {0.3, std::nextafter(0.3, 0.0)}, 1.0, 400.0);
    }
}

TEST(FilterMinimumOrder, StaysInsideArraysOfAnyCount)
{
    // The arrays are exactly as long as the count says: the address sanitizer would tell.
    for (const Family family : computed) {
        for (const std::size_t count : {0U, 1U, 2U, 3U, 4U, 5U, 6U, 7U, 40U}) {
            Row edges(count);
            for (std::size_t i = 0; i < count; ++i)
                edges[i] = 0.9 * static_cast<double>(i + 1) / static_cast<double>(count + 1);
            const Estimate estimate = MinimumOrder(family, edges, 1.0, 40.0);
            EXPECT_EQ(std::count(estimate.wn.begin(), estimate.wn.end(), untouched), 0);
            EXPECT_NE(estimate.order, -77);
        }
        int order = -77;
        ::FilterMinimumOrder(family, nullptr, -4, 1.0, 40.0, &order, nullptr);
        EXPECT_NE(order, -77);
    }
}

} // namespace
} // namespace trelvanix
