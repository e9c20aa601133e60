#include "classic/bessel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "iir/bessel_prototype.h"
#include "support/bits.h"
#include "support/iir_arrays.h"
#include "trelvanix.h"

namespace trelvanix
{
namespace
{

using testing::IirArrays;
using testing::IsNear;
using testing::Row;

constexpr double epsilon = std::numeric_limits<double>::epsilon();

IirArrays Design(int order, Row wn, int filterType)
{
    IirArrays filter(order, std::move(wn), static_cast<unsigned>(filterType));
    ::Bessel(order, filter.wn.data(), filterType, filter.a.data(), filter.b.data());
    return filter;
}

TEST(ReleasedBesselPrototype, KeepsOnePoleTwiceInOrderFour)
{
    const Complex twice(-0.904758796788245, 0.27091873300387465);
    const Complex pole(-0.6572111716718829, 0.8301614350048734);
    EXPECT_EQ(ReleasedBesselPrototype(4).poles,
              (std::vector<Complex>{twice, twice, std::conj(pole), pole}));
}

TEST(ReleasedBesselPrototype, KeepsAnImaginaryPoleInOrderSeventeen)
{
    const std::vector<Complex> poles = ReleasedBesselPrototype(17).poles;
    ASSERT_EQ(poles.size(), 17U);
    EXPECT_EQ(poles.front(), Complex(0.0, -0.9087141161336397));
    EXPECT_EQ(poles[1], Complex(-0.9016273850787286, -0.13602679951730245));
    EXPECT_EQ(poles.back(), Complex(-0.2998489459990082, 1.166761272925669));
    const std::vector<Complex> exact = BesselPrototype(17).poles;
    EXPECT_EQ(exact.front(), Complex(-0.9087141161336397, 0.0));
    EXPECT_TRUE(std::equal(poles.begin() + 1, poles.end(), exact.begin() + 1));
}

TEST(ReleasedBesselPrototype, KeepsPolesAtTheOriginOutsideTheTable)
{
    EXPECT_TRUE(ReleasedBesselPrototype(0).poles.empty());
    for (const int order : {26, 27, 100})
        EXPECT_EQ(ReleasedBesselPrototype(order).poles,
                  std::vector<Complex>(static_cast<std::size_t>(order), 0.0));
    EXPECT_EQ(ReleasedBesselPrototype(26).gain, 1.0);
}

TEST(Bessel, DesignsAFirstOrderLowpass)
{
    const IirArrays f = Design(1, {2.0}, 0);
    EXPECT_EQ(f.a, (Row{1.0, 2.0}));
    EXPECT_EQ(f.b, (Row{0.0, 2.0}));
    EXPECT_EQ(f.wn[0], 2.0);
}

TEST(Bessel, DesignsASecondOrderLowpass)
{
    // s^2 + sqrt(3) Wo s + Wo^2.
    const IirArrays f = Design(2, {2.0}, 0);
    EXPECT_TRUE(IsNear({1.0, 2.0 * std::sqrt(3.0), 4.0}, f.a.data(), 16 * epsilon));
    EXPECT_TRUE(IsNear({0.0, 0.0, 4.0}, f.b.data(), 64 * epsilon));
}

TEST(Bessel, HasUnitGainAtZeroFrequencyAsALowpass)
{
    for (int order = 1; order <= 25; ++order) {
        if (order == 4 || order == 17)
            continue;
        const IirArrays f = Design(order, {1.0}, 0);
        // The constant terms are products of poles from two eigenvalue problems of increasing
        // condition.
        EXPECT_NEAR(f.b.back(), 1.0, 1e-6) << order;
        EXPECT_NEAR(f.a.back(), 1.0, 1e-6) << order;
    }
}

TEST(Bessel, KeepsASingleNumeratorTermForEveryType)
{
    for (int type = -1; type <= 4; ++type) {
        for (const int order : {1, 2, 3, 4, 7, 10}) {
            const IirArrays f = Design(order, {0.8, 1.9}, type);
            for (std::size_t i = 0; i + 1 < f.b.size(); ++i)
                EXPECT_EQ(f.b[i], 0.0);
            EXPECT_NE(f.b.back(), 0.0);
            EXPECT_TRUE(std::isfinite(f.b.back()));
        }
    }
}

TEST(Bessel, OverwritesBandEdges)
{
    for (const int type : {2, 3})
        EXPECT_EQ(Design(2, {2.0, 8.0}, type).wn, (Row{4.0, 0.0}));
    for (const int type : {0, 1, 4, -1})
        EXPECT_EQ(Design(2, {2.0, 8.0}, type).wn, (Row{2.0, 8.0}));
}

TEST(Bessel, TakesOtherTypesForLowpasses)
{
    const IirArrays lowpass = Design(5, {3.0}, 0);
    for (const int type :
         {4, 7, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        const IirArrays f = Design(5, {3.0}, type);
        EXPECT_EQ(f.a, lowpass.a);
        EXPECT_EQ(f.b, lowpass.b);
    }
}

TEST(Bessel, MirrorsTheLowpassAsAHighpass)
{
    // s -> Wo / s turns the monic denominator around; its constant term is Wo^n times the product 1.
    const IirArrays low = Design(5, {1.0}, 0);
    const IirArrays high = Design(5, {1.0}, 1);
    for (std::size_t i = 0; i < low.a.size(); ++i)
        EXPECT_NEAR(high.a[i], low.a[low.a.size() - 1 - i], 1e-11) << i; // coefficients up to 12
}

TEST(Bessel, KeepsTheDenominatorOfOrderFour)
{
    // (s^2 + 2 * 0.657.. s + |p|^2) and the real parts of (s - q)^2 = s^2 - 2 Re q s + Re q^2.
    const double p1 = 2.0 * 0.6572111716718829;
    const double p2 = 0.6572111716718829 * 0.6572111716718829 + 0.8301614350048734 * 0.8301614350048734;
    const double q1 = 2.0 * 0.904758796788245;
    const double q2 = 0.904758796788245 * 0.904758796788245 - 0.27091873300387465 * 0.27091873300387465;
    const IirArrays f = Design(4, {1.0}, 0);
    EXPECT_TRUE(IsNear({1.0, p1 + q1, p2 + q2 + p1 * q1, p1 * q2 + p2 * q1, p2 * q2}, f.a.data(),
                       1000 * epsilon));
}

TEST(Bessel, KeepsAPoleAtTheOriginInOrderSeventeen)
{
    const IirArrays f = Design(17, {1.0}, 0);
    // The real part of the stored pole counts: one factor s.
    EXPECT_NEAR(f.a.back(), 0.0, 1e-9);
    EXPECT_NEAR(f.a[16], 1.0 / 0.9087141161336397, 1e-6);
    // Its inverse doesn't exist.
    EXPECT_FALSE(std::isfinite(Design(17, {1.0}, 1).a.back()));
}

TEST(Bessel, KeepsAllPolesAtTheOriginOutsideTheTable)
{
    const IirArrays f = Design(26, {1.0}, 0);
    EXPECT_EQ(f.a[0], 1.0);
    for (std::size_t i = 1; i < f.a.size(); ++i)
        EXPECT_EQ(f.a[i], 0.0);
    EXPECT_FALSE(std::isfinite(Design(26, {1.0}, 1).a.back()));
}

} // namespace
} // namespace trelvanix
