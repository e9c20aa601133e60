#include "classic/butterworth.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

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
using testing::IsNear;
using testing::Row;

constexpr double epsilon = std::numeric_limits<double>::epsilon();

IirArrays Design(int order, Row wn, unsigned filterType, int analog = 0)
{
    IirArrays filter(order, std::move(wn), filterType);
    ::Butterworth(order, filter.wn.data(), filterType, analog, filter.a.data(), filter.b.data());
    return filter;
}

TEST(ButterworthZerosGain, MakesALowpassOneAtZeroFrequency)
{
    const ZerosAndGain result = ButterworthZerosGain({0.5, 0.25}, FilterType::LowPass, 2, 1.0);
    EXPECT_EQ(result.zeros, (std::vector<Complex>{-1.0, -1.0}));
    EXPECT_EQ(result.gain, 0.375 / 4.0);
}

TEST(ButterworthZerosGain, MakesAHighpassOneAtNyquist)
{
    const ZerosAndGain result = ButterworthZerosGain({0.5, 0.25}, FilterType::HighPass, 2, 1.0);
    EXPECT_EQ(result.zeros, (std::vector<Complex>{1.0, 1.0}));
    EXPECT_EQ(result.gain, 1.5 * 1.25 / 4.0);
}

TEST(ButterworthZerosGain, MakesABandpassOneAtItsCentre)
{
    // Wo = 4: a quarter of the sampling rate, e = j; (j - 0.5)(j + 0.5) / ((j - 1)(j + 1)) = 1.25 / 2.
    const ZerosAndGain result = ButterworthZerosGain({0.5, -0.5}, FilterType::BandPass, 1, 4.0);
    EXPECT_EQ(result.zeros, (std::vector<Complex>{1.0, -1.0}));
    EXPECT_NEAR(result.gain, 0.625, 4 * epsilon);
}

TEST(ButterworthZerosGain, MakesABandstopOneAtZeroFrequency)
{
    // Zeros at j and -j: (1 - 0.5)(1 + 0.5) / 2.
    const ZerosAndGain result = ButterworthZerosGain({0.5, -0.5}, FilterType::BandStop, 1, 4.0);
    ASSERT_EQ(result.zeros.size(), 2U);
    EXPECT_LT(std::abs(result.zeros[0] - Complex(0.0, 1.0)), epsilon);
    EXPECT_EQ(result.zeros[1], std::conj(result.zeros[0]));
    EXPECT_NEAR(result.gain, 0.375, 4 * epsilon);
}

TEST(ButterworthZerosGain, HasNeitherZerosNorGainForOtherTypes)
{
    const ZerosAndGain result = ButterworthZerosGain({0.5, -0.5}, static_cast<FilterType>(4), 2, 4.0);
    EXPECT_EQ(result.zeros, (std::vector<Complex>{0.0, 0.0}));
    EXPECT_EQ(result.gain, 0.0);
}

TEST(Butterworth, DesignsTheSmallestLowpasses)
{
    const IirArrays one = Design(1, {0.5}, 0);
    EXPECT_TRUE(IsNear({1.0, 0.0}, one.a.data(), 2 * epsilon));
    EXPECT_TRUE(IsNear({0.5, 0.5}, one.b.data(), 2 * epsilon));
    // By hand: s^2 + 4 sqrt(2) s + 16 under the bilinear transform.
    const IirArrays two = Design(2, {0.5}, 0);
    const double root = std::sqrt(2.0);
    EXPECT_TRUE(IsNear({1.0, 0.0, 3.0 - 2.0 * root}, two.a.data(), 8 * epsilon));
    const double b0 = 1.0 / (2.0 + root);
    EXPECT_TRUE(IsNear({b0, 2.0 * b0, b0}, two.b.data(), 8 * epsilon));
}

TEST(Butterworth, AgreesWithAPrintedDesign)
{
    // Third order, edge at a fifth of the sampling rate: Oppenheim & Schafer's method by hand gives the
    // exact poles of the prototype -1, -1/2 +- j sqrt(3)/2 mapped by (4 + p u) / (4 - p u), u the edge.
    const double u = 4.0 * std::tan(3.141592653589793 * 0.2);
    const std::vector<Complex> poles = {-1.0, {-0.5, std::sqrt(0.75)}, {-0.5, -std::sqrt(0.75)}};
    Complex c[4] = {1.0};
    for (const Complex p : poles)
        for (int j = 3; j >= 1; --j)
            c[j] -= (4.0 + p * u) / (4.0 - p * u) * c[j - 1];
    const IirArrays filter = Design(3, {0.4}, 0);
    EXPECT_TRUE(IsNear({1.0, c[1].real(), c[2].real(), c[3].real()}, filter.a.data(), 16 * epsilon));
}

TEST(Butterworth, IsOneAtItsReferenceAndHalfPowerAtItsEdges)
{
    const double halfPower = std::sqrt(0.5);
    for (int order = 1; order <= 8; ++order) {
        // Coefficients of N poles: cancellation in the denominator grows with 2^N near the edges.
        const double tolerance = 1e-14 * std::pow(4.0, order);
        for (unsigned type = 0; type < 4; ++type) {
            const bool band = type >= 2;
            const IirArrays f = Design(order, band ? Row{0.3, 0.6} : Row{0.3}, type);
            const auto gainAt = [&](double w) { return std::abs(DigitalResponse(f.b, f.a, w)); };
            const double centre = 2.0 / 3.141592653589793 * std::atan2(f.wn[0], 4.0);
            const double reference[] = {0.0, 1.0, centre, 0.0};
            EXPECT_NEAR(gainAt(reference[type]), 1.0, tolerance) << order << " " << type;
            EXPECT_NEAR(gainAt(0.3), halfPower, tolerance) << order << " " << type;
            if (band) {
                EXPECT_NEAR(gainAt(0.6), halfPower, tolerance) << order << " " << type;
            }
            EXPECT_EQ(f.a[0], 1.0);
        }
    }
}

TEST(Butterworth, KeepsZeroNumeratorForOtherTypes)
{
    for (const unsigned type : {4U, 7U, 0xFFFFFFFFU}) {
        const IirArrays f = Design(3, {0.3}, type);
        EXPECT_TRUE(HasSameBits({0.0, 0.0, 0.0, 0.0}, f.b.data()));
        EXPECT_EQ(f.wn[0], 0.3);
        EXPECT_EQ(f.a[0], 1.0);
        // The raw edge takes the place of the prewarped one.
        const double edge = 2.0 / 3.141592653589793 * std::atan(0.3 / 4.0);
        EXPECT_TRUE(IsNear(Design(3, {edge}, 0).a, f.a.data(), 32 * epsilon));
    }
}

TEST(Butterworth, KeepsAnalogLowpassWithoutAnEdge)
{
    // All poles at zero; the numerator is still that of the digital rule: a gain of 1 / 2^n.
    Row a(3);
    Row b(3);
    ::Butterworth(2, nullptr, 0, 1, a.data(), b.data());
    EXPECT_EQ(a, (Row{1.0, 0.0, 0.0}));
    EXPECT_EQ(b, (Row{0.25, 0.5, 0.25}));
}

TEST(Butterworth, KeepsAnalogHighpassWithDigitalZeros)
{
    // Wo = 0 times the inverse: poles at zero, zeros at +1.
    const IirArrays f = Design(2, {0.3}, 1, 1);
    EXPECT_TRUE(IsNear({1.0, 0.0, 0.0}, f.a.data(), 0.0));
    EXPECT_TRUE(IsNear({0.25, -0.5, 0.25}, f.b.data(), 0.0));
    EXPECT_EQ(f.wn[0], 0.3);
}

TEST(Butterworth, KeepsAnalogBandTypesWithoutALowerEdge)
{
    // Wo = 0 makes Q = 0 and A / Q not finite.
    for (const unsigned type : {2U, 3U}) {
        const IirArrays f = Design(2, {3.0, 5.0}, type, 1);
        EXPECT_EQ(f.wn, (Row{0.0, 0.0}));
        EXPECT_TRUE(std::isnan(f.a[2]));
    }
}

} // namespace
} // namespace trelvanix
