#include "classic/chebyshev1.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <numeric>
#include <vector>

#include "iir/chebyshev1_prototype.h"
#include "support/bits.h"
#include "support/frequency_response.h"
#include "support/iir_arrays.h"
#include "trelvanix.h"

namespace trelvanix
{
namespace
{

using testing::DigitalResponse;
using testing::HasSameBits;
using testing::IirArrays;
using testing::Row;

constexpr double epsilon = std::numeric_limits<double>::epsilon();

IirArrays Design(int order, double rp, Row wn, unsigned filterType, int analog = 0)
{
    IirArrays filter(order, std::move(wn), filterType);
    ::Chebyshv1(order, rp, filter.wn.data(), filterType, analog, filter.a.data(), filter.b.data());
    return filter;
}

TEST(Cheb1ZerosGain, LowersTheGainOfEvenOrdersByTheRipple)
{
    const std::vector<Complex> poles = {0.5, 0.25};
    EXPECT_EQ(Cheb1ZerosGain(poles, FilterType::LowPass, 3, 1.0, 20.0, 7.0).gain, 0.375 / 8.0);
    EXPECT_NEAR(Cheb1ZerosGain(poles, FilterType::LowPass, 2, 1.0, 20.0, 7.0).gain, 0.1 * 0.375 / 4.0,
                epsilon);
    EXPECT_EQ(Cheb1ZerosGain(poles, FilterType::HighPass, 2, 1.0, 20.0, 7.0).zeros,
              (std::vector<Complex>{1.0, 1.0}));
}

TEST(Cheb1ZerosGain, KeepsThePrototypeGainForOtherTypes)
{
    const auto other = static_cast<FilterType>(4);
    EXPECT_EQ(Cheb1ZerosGain({0.5}, other, 1, 1.0, 20.0, -7.0).gain, -7.0);
    EXPECT_NEAR(Cheb1ZerosGain({0.5, 0.5}, other, 2, 1.0, 20.0, 7.0).gain, 0.7, epsilon);
    EXPECT_EQ(Cheb1ZerosGain({0.5}, other, 1, 1.0, 20.0, -7.0).zeros, std::vector<Complex>{0.0});
}

TEST(Chebyshv1, SumsToTheRippleFloorForEvenOrders)
{
    for (int order = 1; order <= 8; ++order) {
        const IirArrays f = Design(order, 1.0, {0.4}, 0);
        const double top = std::accumulate(f.b.begin(), f.b.end(), 0.0);
        const double bottom = std::accumulate(f.a.begin(), f.a.end(), 0.0);
        const double expected = order % 2 == 0 ? std::pow(10.0, -1.0 / 20.0) : 1.0;
        // The sum of a loses digits to cancellation, its addends being binomial in size.
        EXPECT_NEAR(top / bottom, expected, epsilon * std::pow(2.0, order) * 8.0 / bottom) << order;
    }
}

TEST(Chebyshv1, FallsToTheRippleAtItsEdges)
{
    const double floor = std::pow(10.0, -0.5 / 20.0);
    for (int order = 1; order <= 6; ++order) {
        const double tolerance = 1e-14 * std::pow(8.0, order); // cancellation near poles, as above
        for (unsigned type = 0; type < 4; ++type) {
            const bool band = type >= 2;
            const IirArrays f = Design(order, 0.5, band ? Row{0.3, 0.6} : Row{0.3}, type);
            EXPECT_NEAR(std::abs(DigitalResponse(f.b, f.a, 0.3)), floor, tolerance);
            if (band) {
                EXPECT_NEAR(std::abs(DigitalResponse(f.b, f.a, 0.6)), floor, tolerance);
            }
        }
    }
}

TEST(Chebyshv1, KeepsPrototypeGainAndZerosAtTheOriginForOtherTypes)
{
    for (const unsigned type : {4U, 7U, 0xFFFFFFFFU}) {
        const IirArrays odd = Design(3, 1.0, {0.3}, type);
        EXPECT_TRUE(HasSameBits(
            {-Cheb1Prototype(3, 1.0).gain, 0.0, 0.0, 0.0},
            Row{odd.b[0], std::fabs(odd.b[1]), std::fabs(odd.b[2]), std::fabs(odd.b[3])}.data()));
        const IirArrays even = Design(2, 1.0, {0.3}, type);
        EXPECT_NEAR(even.b[0], Cheb1Prototype(2, 1.0).gain * std::pow(10.0, -0.05), 2 * epsilon);
        EXPECT_EQ(even.wn[0], 0.3);
    }
}

TEST(Chebyshv1, KeepsTheBottomOfTheRippleInTheOneCoefficientOfOtherTypes)
{
    const double rp = 1.0;
    const double eps = std::sqrt(std::pow(10.0, rp / 10.0) - 1.0);
    for (const int analog : {0, 1}) {
        for (int order = 1; order <= 6; ++order) {
            const IirArrays f = Design(order, rp, {0.3}, 4, analog);
            const double gain = 1.0 / (std::pow(2.0, order - 1) * eps);
            const double expected = order % 2 != 0 ? -gain : gain * std::pow(10.0, -rp / 20.0);
            EXPECT_NEAR(f.b[0], expected, 16 * epsilon * gain) << order; // a product of order poles
            for (std::size_t i = 1; i < f.b.size(); ++i)
                EXPECT_EQ(f.b[i], 0.0) << order << " " << i;
        }
    }
}

TEST(Chebyshv1, GivesNotANumberWithoutRipple)
{
    const IirArrays f = Design(3, 0.0, {0.3}, 0);
    EXPECT_EQ(f.a[0], 1.0);
    EXPECT_TRUE(std::isnan(f.a[3]));
    EXPECT_TRUE(std::isnan(f.b[3]));
}

} // namespace
} // namespace trelvanix
