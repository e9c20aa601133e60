#include "classic/chebyshev2.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "iir/chebyshev2_prototype.h"
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
using testing::PolynomialAt;
using testing::ProductFromRoots;
using testing::Row;

constexpr double epsilon = std::numeric_limits<double>::epsilon();

IirArrays Design(int order, double rs, Row wn, unsigned filterType, int analog = 0)
{
    IirArrays filter(order, std::move(wn), filterType);
    ::Chebyshv2(order, rs, filter.wn.data(), filterType, analog, filter.a.data(), filter.b.data());
    return filter;
}

TEST(Chebyshv2, HasItsZeroAtNyquistForAFirstOrderLowpass)
{
    // Only the read-back gives a zero: b is symmetric.
    const IirArrays f = Design(1, 20.0, {0.4}, 0);
    EXPECT_NEAR(f.b[0], f.b[1], 4 * epsilon);
    EXPECT_NEAR((f.b[0] + f.b[1]) / (f.a[0] + f.a[1]), 1.0, 16 * epsilon);
}

TEST(Chebyshv2, IsOneAtItsReferenceAndDownAtItsEdges)
{
    // The types whose numerator is palindromic: every lowpass and bandstop, even highpass and bandpass.
    for (int order = 1; order <= 6; ++order) {
        // The numerator is read back from eigenvalues that may be off by 1e-11, the tolerance at which
        // they split, times their condition, which grows with the order.
        const double tolerance = 1e-11 * std::pow(4.0, order);
        for (unsigned type = 0; type < 4; ++type) {
            if (order % 2 != 0 && (type == 1 || type == 2))
                continue;
            const bool band = type >= 2;
            const IirArrays f = Design(order, 30.0, band ? Row{0.3, 0.6} : Row{0.3}, type);
            const auto gainAt = [&](double w) { return std::abs(DigitalResponse(f.b, f.a, w)); };
            const double centre = 2.0 / 3.141592653589793 * std::atan2(f.wn[0], 4.0);
            const double reference[] = {0.0, 1.0, centre, 0.0};
            EXPECT_NEAR(gainAt(reference[type]), 1.0, tolerance) << order << " " << type;
            EXPECT_NEAR(gainAt(0.3), std::pow(10.0, -1.5), tolerance) << order << " " << type;
            if (band) {
                EXPECT_NEAR(gainAt(0.6), std::pow(10.0, -1.5), tolerance) << order << " " << type;
            }
        }
    }
}

TEST(Chebyshv2, KeepsASymmetricNumeratorForOddHighpasses)
{
    // The true numerator is antisymmetric, with a zero at +1. The zeros are those of a polynomial whose
    // constant term equals its leading coefficient, so the response at zero frequency is not zero.
    const IirArrays f = Design(1, 20.0, {0.4}, 1);
    EXPECT_NEAR(f.b[0], f.b[1], 4 * epsilon);
    EXPECT_GT(std::abs(DigitalResponse(f.b, f.a, 0.0)), 0.01);
}

TEST(Chebyshv2, KeepsReadingTheNumeratorBackForOtherTypes)
{
    for (const unsigned type : {4U, 7U, 0xFFFFFFFFU}) {
        const IirArrays f = Design(4, 40.0, {0.8}, type);
        EXPECT_EQ(f.wn[0], 0.8);
        const double edge = 2.0 / 3.141592653589793 * std::atan(0.8 / 4.0);
        const IirArrays lowpass = Design(4, 40.0, {edge}, 0);
        EXPECT_TRUE(IsNear(lowpass.a, f.a.data(), 64 * epsilon));
        // Coefficients of about 0.01 from zeros that lie close together.
        EXPECT_TRUE(IsNear(lowpass.b, f.b.data(), 1e-9));
    }
}

// The denominator of the analog lowpass with its edge at 0.3 rad/s, and a b whose first coefficient alone is the
// filter's.
TEST(Chebyshv2, KeepsReadingTheEdgeOfOtherTypesAlsoIfAnalog)
{
    for (const int order : {3, 4}) {
        const IirArrays f = Design(order, 40.0, {0.3}, 4, 1);
        EXPECT_EQ(f.wn[0], 0.3);
        const AnalogPrototype prototype = Cheb2Prototype(order, 40.0);
        std::vector<Complex> poles = prototype.poles;
        for (Complex& pole : poles)
            pole *= 0.3;
        for (const Complex s : {Complex(0.0, 0.0), Complex(0.0, 0.3), Complex(0.2, 0.1)}) {
            // Both are sums and products of some ten numbers below 1.
            EXPECT_LE(std::abs(PolynomialAt(f.a, s) - ProductFromRoots(poles, s)), 64 * epsilon)
                << order;
        }
        // Numerators of odd orders begin with s^(order - 1) on paper, with the attenuation for even ones.
        const double leading = order % 2 != 0 ? 0.3 * prototype.gain : 0.01;
        // Off by as much as an eigenvalue may be that splits at 1e-11.
        EXPECT_NEAR(f.b[0], leading, 1e-10) << order;
        if (order % 2 != 0) {
            for (std::size_t i = 1; i < f.b.size(); ++i)
                EXPECT_FALSE(std::isfinite(f.b[i])) << i;
        } else {
            EXPECT_NEAR(f.b.back(), f.b.front(), 1e-12);
        }
    }
}

TEST(Chebyshv2, KeepsWhatIsReadBackFromAnalogModels)
{
    for (const int order : {3, 4}) {
        const bool odd = order % 2 != 0;
        const IirArrays low = Design(order, 40.0, {0.3}, 0, 1);
        EXPECT_EQ(low.a[0], 1.0);
        EXPECT_TRUE(IsNear(Row(low.a.size() - 1, 0.0), &low.a[1], 0.0));
        EXPECT_NEAR(low.b[0], odd ? 0.0 : 0.01, epsilon);
        EXPECT_TRUE(odd ? std::isnan(low.b.back()) : std::fabs(low.b.back() - 0.01) <= 4 * epsilon);
        const IirArrays high = Design(order, 40.0, {0.3}, 1, 1);
        EXPECT_TRUE(IsNear(Row(high.a.size() - 1, 0.0), &high.a[1], 0.0));
        const double end = 1.0;
        EXPECT_NEAR(high.b.front(), end, 64 * epsilon);
        EXPECT_NEAR(high.b.back(), end, 64 * epsilon);
        EXPECT_TRUE(IsNear(Row(high.b.size() - 2, 0.0), &high.b[1], 64 * epsilon));
        // The edge is not read.
        EXPECT_TRUE(HasSameBits(high.b, Design(order, 40.0, {0.7}, 1, 1).b.data()));
        for (const unsigned type : {2U, 3U}) {
            const IirArrays band = Design(order, 40.0, {0.3, 0.5}, type, 1);
            for (std::size_t i = 1; i < band.a.size(); ++i)
                EXPECT_TRUE(std::isnan(band.a[i]) && std::isnan(band.b[i])) << type << " " << i;
        }
    }
}

TEST(Chebyshv2, GivesNotANumberWithoutAttenuation)
{
    const IirArrays f = Design(3, 0.0, {0.3}, 0);
    EXPECT_TRUE(std::isnan(f.a[3]));
    EXPECT_TRUE(std::isnan(f.b[3]));
}

} // namespace
} // namespace trelvanix
