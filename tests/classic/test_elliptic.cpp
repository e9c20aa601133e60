#include "classic/elliptic.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "classic/elliptic_degree.h"
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

IirArrays Design(int order, double rp, double rs, Row wn, unsigned filterType, int analog = 0)
{
    IirArrays filter(order, std::move(wn), filterType);
    ::Elliptic(order, rp, rs, filter.wn.data(), filterType, analog, filter.a.data(), filter.b.data());
    return filter;
}

double Modulus(double rp, double rs, int order)
{
    const double ep = std::sqrt(std::pow(10.0, rp / 10.0) - 1.0);
    const double es = std::sqrt(std::pow(10.0, rs / 10.0) - 1.0);
    return SelectivityModulus(order, ep / es);
}

double Decibels(Complex response)
{
    return 20.0 * std::log10(std::abs(response));
}

Complex PrototypeResponse(const AnalogPrototype& prototype, double w)
{
    const Complex s(0.0, w);
    return prototype.gain * ProductFromRoots(prototype.zeros, s) / ProductFromRoots(prototype.poles, s);
}

TEST(PairedEllipticPrototype, OfOrderOneIsARealPoleWithUnitGain)
{
    // The ripple is met at 1 rad/s: |p| = 1 / ep.
    const AnalogPrototype prototype = PairedEllipticPrototype(1, 1.0, 40.0);
    EXPECT_TRUE(prototype.zeros.empty());
    ASSERT_EQ(prototype.poles.size(), 1U);
    const double ep = std::sqrt(std::pow(10.0, 0.1) - 1.0);
    EXPECT_NEAR(prototype.poles[0].real(), -1.0 / ep, 1e-11);
    EXPECT_NEAR(prototype.poles[0].imag(), 0.0, 1e-15);
    EXPECT_EQ(prototype.gain, std::fabs(prototype.poles[0].real()));
}

TEST(PairedEllipticPrototype, OfOrderTwoHasAPairOfZerosAndTheRippleAtZeroFrequency)
{
    const AnalogPrototype prototype = PairedEllipticPrototype(2, 1.0, 40.0);
    ASSERT_EQ(prototype.zeros.size(), 2U);
    ASSERT_EQ(prototype.poles.size(), 2U);
    EXPECT_EQ(prototype.zeros[0], std::conj(prototype.zeros[1]));
    EXPECT_EQ(prototype.poles[0], std::conj(prototype.poles[1]));
    EXPECT_NEAR(std::abs(PrototypeResponse(prototype, 0.0)), std::pow(10.0, -1.0 / 20.0),
                8.0 * epsilon);
}

TEST(PairedEllipticPrototype, HasImaginaryZerosBeyondTheStopEdge)
{
    for (int order = 2; order <= 10; ++order) {
        const double k = Modulus(0.5, 50.0, order);
        const std::vector<Complex> zeros = PairedEllipticPrototype(order, 0.5, 50.0).zeros;
        EXPECT_EQ(zeros.size(), static_cast<std::size_t>(order - order % 2));
        for (std::size_t i = 0; i < zeros.size(); ++i) {
            EXPECT_EQ(zeros[i].real(), 0.0);
            EXPECT_GE(std::fabs(zeros[i].imag()) * (1.0 + 4.0 * epsilon), 1.0 / k) << order;
            EXPECT_EQ(zeros[i], std::conj(zeros[i ^ 1U]));
        }
    }
}

TEST(PairedEllipticPrototype, HasNoPlaceForZerosWhereTheModulusIsZero)
{
    ASSERT_EQ(Modulus(1.0, 2000.0, 4), 0.0);
    for (const Complex zero : PairedEllipticPrototype(4, 1.0, 2000.0).zeros) {
        EXPECT_TRUE(std::isnan(zero.real()));
        EXPECT_TRUE(std::isinf(zero.imag()));
    }
}

TEST(PairedEllipticPrototype, PutsTheRealPoleLastForOddOrders)
{
    for (int order = 1; order <= 9; order += 2) {
        const std::vector<Complex> poles = PairedEllipticPrototype(order, 1.0, 60.0).poles;
        ASSERT_EQ(poles.size(), static_cast<std::size_t>(order));
        EXPECT_NEAR(poles.back().imag(), 0.0, 1e-14) << order;
    }
}

TEST(PairedEllipticPrototype, RipplesEquallyInBothBands)
{
    for (const double rp : {0.1, 1.0, 3.0}) {
        for (const double rs : {30.0, 60.0, 90.0}) {
            for (int order = 2; order <= 10; ++order) {
                const AnalogPrototype prototype = PairedEllipticPrototype(order, rp, rs);
                const double k = Modulus(rp, rs, order);
                double lowest = 0.0, highest = -1e9, stop = -1e9;
                for (int i = 0; i <= 4000; ++i) {
                    const double gain = Decibels(PrototypeResponse(prototype, i / 4000.0));
                    lowest = std::min(lowest, gain);
                    highest = std::max(highest, gain);
                    // From the stop edge 1 / k to infinity.
                    if (i > 0)
                        stop = std::max(stop, Decibels(PrototypeResponse(prototype, 4000.0 / (k * i))));
                }
                // k1 passed through the rounding of 1 - k1^2: relative epsilon / (2 k1^2), which the
                // attenuation shows most.
                const double k1 =
                    std::sqrt((std::pow(10.0, 0.1 * rp) - 1.0) / (std::pow(10.0, 0.1 * rs) - 1.0));
                const double tolerance = 1e-6 + 10.0 * epsilon / (k1 * k1);
                EXPECT_NEAR(lowest, -rp, tolerance) << order << " " << rp << " " << rs;
                EXPECT_NEAR(highest, 0.0, 1e-4 + tolerance) << order << " " << rp << " " << rs;
                EXPECT_NEAR(stop, -rs, tolerance) << order << " " << rp << " " << rs;
            }
        }
    }
}

// Coefficients from SciPy 1.10.1, scipy.signal.ellip(4, 1, 40, ...).
TEST(Elliptic, AgreesWithPrintedCoefficients)
{
    const IirArrays lowpass = Design(4, 1.0, 40.0, {0.3}, 0);
    EXPECT_TRUE(IsNear({0.035306770274680946, 0.023374875449924577, 0.05604962635018729,
                        0.02337487544992456, 0.03530677027468094},
                       lowpass.b.data(), 1e-12));
    EXPECT_TRUE(
        IsNear({1.0, -2.320993290489171, 2.677155486880346, -1.5773912625031947, 0.4158015600972941},
               lowpass.a.data(), 1e-12));
    const IirArrays bandstop = Design(2, 1.0, 40.0, {0.3, 0.5}, 3);
    EXPECT_TRUE(IsNear({0.630380532216162, -0.8184172978934793, 1.5239882796571969, -0.8184172978934795,
                        0.6303805322161621},
                       bandstop.b.data(), 1e-12));
    EXPECT_TRUE(
        IsNear({1.0, -1.0652337351553398, 1.5768193648991695, -0.7713248879575226, 0.5477207897745607},
               bandstop.a.data(), 1e-12));
}

TEST(Elliptic, KeepsItsMask)
{
    struct Request {
        unsigned filterType;
        Row wn;
        std::vector<int> orders;
    };
    const Request requests[] = {
        {0, {0.3}, {1, 2, 3, 4, 5, 6}},
        {1, {0.3}, {2, 4, 6}},
        {2, {0.3, 0.5}, {2, 4, 6}},
        {3, {0.3, 0.5}, {1, 2, 3, 4, 5, 6}},
    };
    for (const auto& [filterType, wn, orders] : requests) {
        for (const int order : orders) {
            const IirArrays filter = Design(order, 1.0, 50.0, wn, filterType);
            double lowest = 0.0, highest = -1e9;
            for (int i = 0; i <= 1000; ++i) {
                // The pass band: up to, from, between or outside the edges, edges included.
                const double t = i / 1000.0;
                double f = 0.0;
                if (filterType == 0)
                    f = wn[0] * t;
                else if (filterType == 1)
                    f = wn[0] + (1.0 - wn[0]) * t;
                else if (filterType == 2)
                    f = wn[0] + (wn[1] - wn[0]) * t;
                else
                    f = t < 0.5 ? wn[0] * t * 2.0 : wn[1] + (1.0 - wn[1]) * (2.0 * t - 1.0);
                const double gain = Decibels(DigitalResponse(filter.b, filter.a, f));
                lowest = std::min(lowest, gain);
                highest = std::max(highest, gain);
            }
            EXPECT_NEAR(lowest, -1.0, 1e-6) << filterType << " " << order;
            EXPECT_LE(highest, 1e-6) << filterType << " " << order;
        }
    }
    // The stop band of a lowpass begins at tan(pi f / 2) = tan(pi wn / 2) / k.
    for (int order = 2; order <= 6; ++order) {
        const IirArrays filter = Design(order, 1.0, 50.0, {0.3}, 0);
        const double pi = 3.141592653589793;
        const double edge = 2.0 / pi * std::atan(std::tan(0.15 * pi) / Modulus(1.0, 50.0, order));
        double stop = -1e9;
        for (int i = 0; i <= 1000; ++i)
            stop = std::max(
                stop, Decibels(DigitalResponse(filter.b, filter.a, edge + (1.0 - edge) * i / 1000.0)));
        EXPECT_NEAR(stop, -50.0, 1e-5) << order;
    }
}

TEST(Elliptic, KeepsTheUsefulDenominatorOfOddHighpassOrdersAndTheirOtherNumerator)
{
    // The numerator of an odd highpass is antisymmetric; its last coefficient counts as equal to the
    // first, so the zeros are those of another polynomial, while the poles are right: they are those of
    // the lowpass with the mirrored edge, negated.
    const IirArrays highpass = Design(3, 1.0, 40.0, {0.7}, 1);
    const IirArrays lowpass = Design(3, 1.0, 40.0, {0.3}, 0);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_NEAR(highpass.a[i], (i % 2 == 0 ? 1.0 : -1.0) * lowpass.a[i], 1e-11);
    EXPECT_NEAR(highpass.b[3], highpass.b[0], 1e-11);
    // A highpass of odd order blocks zero frequency altogether.
    EXPECT_GT(std::abs(DigitalResponse(highpass.b, highpass.a, 0.0)), 0.02);
}

TEST(Elliptic, KeepsTheSmallModulusOfHighAttenuations)
{
    // Above some 104 to 120 dB the modulus comes from the power of the nome: the zeros move far out and
    // the transition widens from tenths of the edge to decades.
    EXPECT_GT(Modulus(1.0, 100.0, 4), 0.01);
    EXPECT_LT(Modulus(1.0, 140.0, 4), 1e-12);
}

TEST(Elliptic, GivesNotANumberWithoutRippleAndForRipplesWithoutSense)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    for (const double rp : {0.0, -1.0, nan}) {
        const IirArrays filter = Design(4, rp, 40.0, {0.3}, 0);
        EXPECT_TRUE(std::isnan(filter.b[0])) << rp;
        EXPECT_TRUE(std::isnan(filter.a[1])) << rp;
    }
}

TEST(Elliptic, EndsWhereTheModulusRoundsToOne)
{
    // Equal decibels make k1 = 1, many orders with little attenuation make k = 1.
    for (unsigned filterType = 0; filterType < 4; ++filterType) {
        Design(4, 3.0, 3.0, {0.3, 0.5}, filterType);
        Design(9, 1.0, 1.5, {0.3, 0.5}, filterType);
        Design(12, 10.0, 3.0, {0.3, 0.5}, filterType);
    }
    EXPECT_EQ(Modulus(3.0, 3.0, 4), 1.0);
}

// The denominator of the analog lowpass with its edge at 0.3 rad/s, and a b whose first coefficient alone is the
// filter's.
TEST(Elliptic, KeepsReadingTheEdgeOfOtherTypesAlsoIfAnalog)
{
    for (const int order : {3, 4}) {
        const IirArrays f = Design(order, 1.0, 40.0, {0.3}, 4, 1);
        EXPECT_EQ(f.wn[0], 0.3);
        const AnalogPrototype prototype = PairedEllipticPrototype(order, 1.0, 40.0);
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

TEST(Elliptic, KeepsWhatIsReadBackFromAnalogModels)
{
    // The degree equation sees k1 = 0.005 with a relative error of 1.5 epsilon / k1^2, some 1.3e-11.
    const double tolerance = 0.01 * 1.3e-11;
    for (const int order : {3, 4}) {
        const bool odd = order % 2 != 0;
        const IirArrays low = Design(order, 1.0, 40.0, {0.3}, 0, 1);
        EXPECT_EQ(low.a[0], 1.0);
        EXPECT_TRUE(IsNear(Row(low.a.size() - 1, 0.0), &low.a[1], 0.0));
        EXPECT_NEAR(low.b[0], odd ? 0.0 : 0.01, tolerance);
        EXPECT_TRUE(odd ? std::isnan(low.b.back()) : std::fabs(low.b.back() - 0.01) <= tolerance);
        const IirArrays high = Design(order, 1.0, 40.0, {0.3}, 1, 1);
        EXPECT_TRUE(IsNear(Row(high.a.size() - 1, 0.0), &high.a[1], 0.0));
        const double end = odd ? 1.0 : std::pow(10.0, -1.0 / 20.0);
        EXPECT_NEAR(high.b.front(), end, 64 * epsilon);
        EXPECT_NEAR(high.b.back(), end, 64 * epsilon);
        EXPECT_TRUE(IsNear(Row(high.b.size() - 2, 0.0), &high.b[1], 64 * epsilon));
        // The edge is not read.
        EXPECT_TRUE(HasSameBits(high.b, Design(order, 1.0, 40.0, {0.7}, 1, 1).b.data()));
        for (const unsigned type : {2U, 3U}) {
            const IirArrays band = Design(order, 1.0, 40.0, {0.3, 0.5}, type, 1);
            for (std::size_t i = 1; i < band.a.size(); ++i)
                EXPECT_TRUE(std::isnan(band.a[i]) && std::isnan(band.b[i])) << type << " " << i;
        }
    }
}

TEST(Elliptic, KeepsReadingTheNumeratorBackForOtherTypes)
{
    for (const unsigned type : {4U, 7U, 0xFFFFFFFFU}) {
        const IirArrays f = Design(4, 1.0, 40.0, {0.8}, type);
        EXPECT_EQ(f.wn[0], 0.8);
        const double edge = 2.0 / 3.141592653589793 * std::atan(0.8 / 4.0);
        const IirArrays lowpass = Design(4, 1.0, 40.0, {edge}, 0);
        EXPECT_TRUE(IsNear(lowpass.a, f.a.data(), 1e-9));
        EXPECT_TRUE(IsNear(lowpass.b, f.b.data(), 1e-9)); // zeros that lie close together
    }
}

} // namespace
} // namespace trelvanix
