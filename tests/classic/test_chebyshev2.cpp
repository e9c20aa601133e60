#include "classic/chebyshev2.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
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
using testing::IirArrays;
using testing::IsNear;
using testing::ProductFromRoots;
using testing::Row;

constexpr double epsilon = std::numeric_limits<double>::epsilon();

IirArrays Design(int order, double rs, Row wn, unsigned filterType, int analog = 0)
{
    IirArrays filter(order, std::move(wn), filterType);
    ::Chebyshv2(order, rs, filter.wn.data(), filterType, analog, filter.a.data(), filter.b.data());
    return filter;
}

TEST(Cheb2Prototype, HasNoZeroForOrderOne)
{
    // 10 lg 2 decibels make delta = 1: the pole is -1 and so is the type I pole.
    const AnalogPrototype prototype = Cheb2Prototype(1, 10.0 * std::log10(2.0));
    EXPECT_TRUE(prototype.zeros.empty());
    ASSERT_EQ(prototype.poles.size(), 1U);
    EXPECT_NEAR(prototype.poles[0].real(), -1.0, 4 * epsilon);
    EXPECT_NEAR(prototype.gain, 1.0, 4 * epsilon);
}

TEST(Cheb2Prototype, SkipsTheZeroAtInfinityOfOddOrders)
{
    for (int order = 1; order <= 15; ++order) {
        const std::vector<Complex> zeros = Cheb2Prototype(order, 40.0).zeros;
        EXPECT_EQ(zeros.size(), static_cast<std::size_t>(order - order % 2)) << order;
        for (const Complex z : zeros)
            EXPECT_LT(std::abs(z), 1e3);
    }
}

TEST(Cheb2Prototype, LetsEachZeroBeFollowedByItsConjugate)
{
    for (int order = 2; order <= 15; ++order) {
        const std::vector<Complex> zeros = Cheb2Prototype(order, 40.0).zeros;
        for (std::size_t i = 0; i < zeros.size(); i += 2) {
            EXPECT_EQ(zeros[i].real(), 0.0);
            // The cosines of mirrored angles differ by the rounding of the angle, which the tangent of
            // the angle magnifies where the cosine is small.
            const double v = 3.141592653589793 * static_cast<double>(i + 1) / (2.0 * order);
            EXPECT_NEAR(zeros[i].imag() * std::cos(v), 1.0, 8 * epsilon * (1.0 + std::tan(v)));
            EXPECT_NEAR(zeros[i].imag(), -zeros[i + 1].imag(),
                        8 * epsilon * (1.0 + std::tan(v)) * zeros[i].imag());
        }
    }
}

TEST(Cheb2Prototype, RipplesBelowTheAttenuation)
{
    // |H(j w)|^2 = 1 / (1 + 1 / (d^2 cos^2(n acos(1 / w)))) for w >= 1, d = 1 / sqrt(10^(rs/10) - 1).
    const double rs = 40.0;
    const double d = 1.0 / std::sqrt(std::pow(10.0, 0.1 * rs) - 1.0);
    for (int order = 1; order <= 10; ++order) {
        const AnalogPrototype prototype = Cheb2Prototype(order, rs);
        for (int i = 0; i <= 20; ++i) {
            const double w = 1.0 + i / 7.0;
            const double t = d * std::cos(order * std::acos(1.0 / w));
            const Complex s(0.0, w);
            const double got = std::abs(prototype.gain * ProductFromRoots(prototype.zeros, s) /
                                        ProductFromRoots(prototype.poles, s));
            // The expected value is at most 0.01, the distance from a zero changes it by order / w.
            EXPECT_NEAR(got, std::fabs(t) / std::sqrt(1.0 + t * t), 100 * order * epsilon);
        }
        EXPECT_NEAR(std::abs(prototype.gain * ProductFromRoots(prototype.zeros, 0.0) /
                             ProductFromRoots(prototype.poles, 0.0)),
                    1.0, 20 * order * epsilon);
    }
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

TEST(Chebyshv2, ReadsTheNumeratorBackForOtherTypesToo)
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

TEST(Chebyshv2, GivesNotANumberWithoutAttenuation)
{
    const IirArrays f = Design(3, 0.0, {0.3}, 0);
    EXPECT_TRUE(std::isnan(f.a[3]));
    EXPECT_TRUE(std::isnan(f.b[3]));
}

} // namespace
} // namespace trelvanix
