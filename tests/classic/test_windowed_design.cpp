#include "classic/windowed_design.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <limits>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "fir/ideal_response.h"
#include "support/bits.h"

namespace trelvanix
{
namespace
{

using testing::HasSameBits;
using testing::IsNear;
using testing::SameBits;

constexpr double epsilon = std::numeric_limits<double>::epsilon();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr int LowPass = 0, HighPass = 1, BandPass = 2, BandStop = 3;
constexpr int Rectangle = 0, Hann = 1, Hamming = 2, Kaiser = 5;

constexpr const char* windowMessage =
    "windowType should be '0-14'.(Rectangle 0,Hann 1,Hamming 2,Blackman 3,Flattop 4,Kaiser 5,Gaussian "
    "6,"
    "Triang 7,Bartlett 8,Bartlett-Hann 9,Blackman-Harris(Symmetric) 10,Blackman-Harris(Periodic) 11,"
    "Parzen 12,Nuttall(Symmetric) 13,Nuttall(Periodic) 14)";
constexpr const char* filterMessage =
    "filterType should be '0-3'.(LowPass 0, HighPass 1,BandPass 2,BandStop 3)";
constexpr const char* orderMessage = "Order should be '>=1'";
constexpr const char* wc1Message = "wc1 should be '(0,1)'";
constexpr const char* wc2Message = "wc2 should be  '(0,1)'";

std::vector<double> Taps(int order, int filterType, int windowType, double wc1, double wc2)
{
    const ResultArray taps = CreateFirByWindow(order, filterType, windowType, wc1, wc2);
    return {taps.get(), taps.get() + order + 1};
}

std::string Refusal(int order, int filterType, int windowType, double wc1, double wc2)
{
    try {
        CreateFirByWindow(order, filterType, windowType, wc1, wc2);
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "accepted";
}

double ResponseModulus(const std::vector<double>& taps, double frequency)
{
    std::complex<double> sum;
    for (std::size_t n = 0; n < taps.size(); ++n)
        sum += std::polar(1.0, -std::acos(-1.0) * frequency * static_cast<double>(n)) * taps[n];
    return std::abs(sum);
}

TEST(CreateFirByWindow, ReportsTheFirstBadArgument)
{
    EXPECT_EQ(Refusal(0, 9, 15, 2.0, 2.0), windowMessage);
    EXPECT_EQ(Refusal(10, 0, -1, 0.5, 0.5), windowMessage);
    EXPECT_EQ(Refusal(0, 9, 0, 2.0, 2.0), filterMessage);
    EXPECT_EQ(Refusal(10, 4, 14, 0.5, 0.5), filterMessage);
    EXPECT_EQ(Refusal(10, -1, 14, 0.5, 0.5), filterMessage);
    EXPECT_EQ(Refusal(0, 3, 14, 2.0, 2.0), orderMessage);
    EXPECT_EQ(Refusal(std::numeric_limits<int>::min(), 0, 0, 0.5, 0.5), orderMessage);
    EXPECT_EQ(Refusal(1, 0, 0, 2.0, 2.0), wc1Message);
    EXPECT_EQ(Refusal(1, 0, 0, 0.5, 2.0), wc2Message);
}

TEST(CreateFirByWindow, TakesEdgesStrictlyBetweenZeroAndOne)
{
    const double inf = std::numeric_limits<double>::infinity();
    const double tiny = std::numeric_limits<double>::denorm_min();
    for (int type = LowPass; type <= BandStop; ++type) {
        for (const double bad : {0.0, -0.0, 1.0, -0.5, inf, -inf}) {
            EXPECT_EQ(Refusal(8, type, Hamming, bad, 0.5), wc1Message);
            EXPECT_EQ(Refusal(8, type, Hamming, 0.5, bad), type == HighPass ? "accepted" : wc2Message);
        }
        EXPECT_EQ(Refusal(8, type, Hamming, tiny, 1.0 - epsilon / 2), "accepted");
    }
}

TEST(CreateFirByWindow, KeepsDemandingAnUnusedUpperEdgeOfALowpassOnly)
{
    EXPECT_EQ(Refusal(8, LowPass, Hamming, 0.5, 0.0), wc2Message);
    EXPECT_EQ(Refusal(8, LowPass, Hamming, 0.5, 1.0), wc2Message);
    EXPECT_EQ(Refusal(8, HighPass, Hamming, 0.5, 5.0), "accepted");
    EXPECT_TRUE(
        HasSameBits(Taps(8, LowPass, Hamming, 0.5, 0.1), Taps(8, LowPass, Hamming, 0.5, 0.9).data()));
    EXPECT_TRUE(
        HasSameBits(Taps(8, HighPass, Hamming, 0.5, 0.1), Taps(8, HighPass, Hamming, 0.5, nan).data()));
}

TEST(CreateFirByWindow, KeepsAcceptingNotANumberEdges)
{
    for (int type = LowPass; type <= BandStop; ++type) {
        for (const double tap : Taps(6, type, Hamming, nan, 0.5))
            EXPECT_TRUE(std::isnan(tap));
    }
    for (const double tap : Taps(6, BandPass, Hamming, 0.5, nan))
        EXPECT_TRUE(std::isnan(tap));
}

TEST(CreateFirByWindow, RefusesAnOrderWhoseTapCountDoesNotFit)
{
    EXPECT_THROW(CreateFirByWindow(std::numeric_limits<int>::max(), LowPass, Rectangle, 0.5, 0.5),
                 std::bad_array_new_length);
}

TEST(CreateFirByWindow, OfOrderOneIsTwoHalves)
{
    EXPECT_EQ(Taps(1, LowPass, Rectangle, 0.5, 0.5), (std::vector<double>{0.5, 0.5}));
}

TEST(CreateFirByWindow, KeepsNotANumberForAWindowOfZeros)
{
    const std::vector<double> taps = Taps(1, LowPass, Hann, 0.5, 0.5);
    EXPECT_TRUE(std::isnan(taps[0]));
    EXPECT_TRUE(std::isnan(taps[1]));
}

TEST(CreateFirByWindow, OfEvenOrderIsSymmetric)
{
    for (int type = LowPass; type <= BandStop; ++type) {
        for (const int order : {2, 10, 64}) {
            // Rectangle and ideal response are symmetric to the last bit; the cosine of the other
            // windows is taken at angles that are not.
            const std::vector<double> taps = Taps(order, type, Rectangle, 0.3, 0.6);
            EXPECT_TRUE(HasSameBits(taps, std::vector<double>(taps.rbegin(), taps.rend()).data()));
            const std::vector<double> windowed = Taps(order, type, Hamming, 0.3, 0.6);
            EXPECT_TRUE(IsNear(windowed, std::vector<double>(windowed.rbegin(), windowed.rend()).data(),
                               32 * epsilon));
        }
    }
}

TEST(CreateFirByWindow, HasUnitGainAtItsReferenceFrequency)
{
    const double wc1 = 0.3;
    const double wc2 = 0.55;
    const double references[] = {0.0, 1.0, (wc1 + wc2) * 0.5, 0.0};
    for (int type = LowPass; type <= BandStop; ++type) {
        for (int window = 0; window <= 14; ++window) {
            for (const int order : {20, 64, 101}) {
                if (type == HighPass && order % 2 == 1)
                    continue;
                // The sum of order + 1 terms, here and in the design, and the division.
                EXPECT_NEAR(ResponseModulus(Taps(order, type, window, wc1, wc2), references[type]), 1.0,
                            8 * order * epsilon)
                    << "type " << type << ", window " << window << ", order " << order;
            }
        }
    }
}

TEST(CreateFirByWindow, OfALowpassSumsToOneAndOfAHighpassAlternatelyToOne)
{
    double sum = 0.0;
    for (const double tap : Taps(30, LowPass, Kaiser, 0.25, 0.5))
        sum += tap;
    EXPECT_NEAR(sum, 1.0, 31 * epsilon);

    double alternating = 0.0;
    double sign = 1.0;
    for (const double tap : Taps(30, HighPass, Kaiser, 0.25, 0.5)) {
        alternating += sign * tap;
        sign = -sign;
    }
    EXPECT_NEAR(std::abs(alternating), 1.0, 4 * 31 * epsilon);
}

TEST(CreateFirByWindow, PassesAndStopsWhereItShould)
{
    // Kaiser with beta = 7 has side lobes of about -70 dB (Kaiser 1974) and, for 101 taps, a transition
    // of 0.09 of Nyquist.
    const double stopGain = std::pow(10.0, -65.0 / 20.0);
    const double passRipple = 1e-3;
    const double wc1 = 0.3;
    const double wc2 = 0.7;
    for (int type = LowPass; type <= BandStop; ++type) {
        const std::vector<double> taps = Taps(100, type, Kaiser, wc1, wc2);
        for (int i = 0; i <= 200; ++i) {
            const double f = i / 200.0;
            if (std::abs(f - wc1) < 0.06 || (type >= BandPass && std::abs(f - wc2) < 0.06))
                continue;
            const bool below = f < wc1;
            const bool between = f > wc1 && f < wc2;
            const bool passes = type == LowPass    ? below
                                : type == HighPass ? !below
                                : type == BandPass ? between
                                                   : !between;
            const double gain = ResponseModulus(taps, f);
            if (passes) {
                EXPECT_NEAR(gain, 1.0, passRipple) << "type " << type << " at " << f;
            } else {
                EXPECT_LT(gain, stopGain) << "type " << type << " at " << f;
            }
        }
    }
}

TEST(CreateFirByWindow, KeepsAcceptingReversedEdges)
{
    // The ideal response changes its sign, the modulus that it is divided by does not.
    std::vector<double> expected = Taps(20, BandPass, Hamming, 0.3, 0.6);
    for (double& tap : expected)
        tap = -tap;
    EXPECT_TRUE(HasSameBits(expected, Taps(20, BandPass, Hamming, 0.6, 0.3).data()));
    EXPECT_EQ(Refusal(20, BandStop, Hamming, 0.6, 0.3), "accepted");
}

TEST(CreateFirByWindow, KeepsTheHalfIntegerTermOfOddOrders)
{
    // With t = n - 1.5 the term sin(pi t) of highpass and bandstop is +-1: h(t) = (sin(pi t) - sin(w
    // t)) / (pi t). The gain at zero frequency of the bandstop is then 1 all the same.
    const std::vector<double> h = HighPassImpulse(4, 0.5 * std::acos(-1.0));
    const double pi = std::acos(-1.0);
    const double outer = (-1.0 - std::sqrt(0.5)) / (1.5 * pi);
    const double inner = (1.0 - std::sqrt(0.5)) / (0.5 * pi);
    EXPECT_TRUE(IsNear({outer, inner, inner, outer}, h.data(), 4 * epsilon));
    double sum = 0.0;
    for (const double tap : Taps(21, BandStop, Hamming, 0.4, 0.6))
        sum += tap;
    EXPECT_NEAR(sum, 1.0, 22 * epsilon);
}

TEST(WindowAndNormalise, DividesByTheSignedSumOfALowpass)
{
    const double h[] = {-1.0, -2.0, -1.0};
    const ResultArray taps =
        WindowAndNormalise(h, FilterType::LowPass, WindowType::Rectangle, 0.5, 0.5, 3);
    EXPECT_TRUE(HasSameBits({0.25, 0.5, 0.25}, taps.get()));
}

TEST(WindowAndNormalise, KeepsDividingByAGainOfZero)
{
    const double h[] = {1.0, 0.0, -1.0};
    const ResultArray taps =
        WindowAndNormalise(h, FilterType::LowPass, WindowType::Rectangle, 0.5, 0.5, 3);
    EXPECT_EQ(taps[0], std::numeric_limits<double>::infinity());
    EXPECT_TRUE(SameBits(taps[1], nan));
    EXPECT_EQ(taps[2], -std::numeric_limits<double>::infinity());
}

TEST(IdealImpulseResponse, GoesByTheFilterTypeAndTakesAnyOtherAsLowpass)
{
    EXPECT_EQ(IdealImpulseResponse(7, 1.0, 2.0, FilterType::LowPass), LowPassImpulse(7, 1.0));
    EXPECT_EQ(IdealImpulseResponse(7, 1.0, 2.0, FilterType::HighPass), HighPassImpulse(7, 1.0));
    EXPECT_EQ(IdealImpulseResponse(7, 1.0, 2.0, FilterType::BandPass), BandPassImpulse(7, 1.0, 2.0));
    EXPECT_EQ(IdealImpulseResponse(7, 1.0, 2.0, FilterType::BandStop), BandStopImpulse(7, 1.0, 2.0));
    EXPECT_EQ(IdealImpulseResponse(7, 1.0, 2.0, static_cast<FilterType>(9)), LowPassImpulse(7, 1.0));
}

} // namespace
} // namespace trelvanix
