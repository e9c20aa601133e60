#include "classic/window_types.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <new>
#include <stdexcept>
#include <utility>
#include <vector>

#include "fir/windows.h"
#include "math/trigonometric.h"
#include "support/bits.h"
#include "support/plain_windows.h"

namespace trelvanix
{
namespace
{

using testing::HasSameBits;
using testing::IsNear;
using testing::PlainGaussianWindow;
using testing::PlainKaiserWindow;
using testing::PlainParzenWindow;
using testing::SameBits;

constexpr double epsilon = std::numeric_limits<double>::epsilon();
constexpr WindowType lastWindow = WindowType::NuttallPeriodic;

std::vector<double> Window(WindowType type, int N)
{
    const ResultArray window = CreateWindow(type, N);
    return {window.get(), window.get() + N};
}

// The windows as their authors write them, evaluated in long double.
long double CosineSum(const std::vector<long double>& a, long double x)
{
    long double sum = 0.0L;
    for (std::size_t k = 0; k < a.size(); ++k)
        sum += (k % 2 == 0 ? a[k] : -a[k]) * std::cos(static_cast<long double>(k) * x);
    return sum;
}

long double Formula(WindowType type, long double n, int N)
{
    const long double pi = std::acos(-1.0L);
    const long double D1 = N - 1;
    const long double x = 2.0L * pi * n / D1;
    const long double periodicX = 2.0L * pi * n / N;
    switch (type) {
    case WindowType::Rectangle:
        return 1.0L;
    case WindowType::Hann:
        return std::sin(x / 2) * std::sin(x / 2);
    case WindowType::Hamming:
        return CosineSum({0.54L, 0.46L}, x);
    case WindowType::Blackman:
        return CosineSum({0.42L, 0.5L, 0.08L}, x);
    case WindowType::Flattop:
        return CosineSum({0.215578995L, 0.41663158L, 0.277263158L, 0.083578947L, 0.006947368L}, x);
    case WindowType::Kaiser:
        return std::cyl_bessel_i(0.0L, 7.0L * 2.0L * std::sqrt(n * (D1 - n)) / D1) /
               std::cyl_bessel_i(0.0L, 7.0L);
    case WindowType::Gaussian: {
        const long double sigma = D1 / 2.0L / 2.5L;
        const long double t = n - D1 / 2.0L;
        return std::exp(-t * t / (2.0L * sigma * sigma));
    }
    case WindowType::Triang: {
        const long double halfWidth = N % 2 == 1 ? (N + 1) / 2.0L : N / 2.0L;
        return 1.0L - std::abs(n - D1 / 2.0L) / halfWidth;
    }
    case WindowType::Bartlett:
        return 1.0L - std::abs(n - D1 / 2.0L) / (D1 / 2.0L);
    case WindowType::BartlettHann:
        return 0.62L - 0.48L * std::abs(n / D1 - 0.5L) - 0.38L * std::cos(x);
    case WindowType::BlackmanHarrisSymmetric:
        return CosineSum({0.35875L, 0.48829L, 0.14128L, 0.01168L}, x);
    case WindowType::BlackmanHarrisPeriodic:
        return CosineSum({0.35875L, 0.48829L, 0.14128L, 0.01168L}, periodicX);
    case WindowType::Parzen: {
        // In units of N / 2 from the centre; an even length leaves its last sample empty.
        if (N % 2 == 0 && n == N - 1)
            return 0.0L;
        const int h = (N - 1) / 2;
        const long double m = std::abs(n - h);
        const long double r = m / (N / 2.0L);
        const int quarter = (N - 1) / 4;
        return m <= quarter ? 1.0L - 6.0L * r * r * (1.0L - r)
                            : 2.0L * (1.0L - r) * (1.0L - r) * (1.0L - r);
    }
    case WindowType::NuttallSymmetric:
        return CosineSum({0.3635819L, 0.4891775L, 0.1365995L, 0.0106411L}, x);
    case WindowType::NuttallPeriodic:
        return CosineSum({0.3635819L, 0.4891775L, 0.1365995L, 0.0106411L}, periodicX);
    }
    return std::numeric_limits<long double>::quiet_NaN();
}

// Error of a window value in double, absolute; every window stays below 1.01.
double FormulaTolerance(WindowType type)
{
    switch (type) {
    case WindowType::Kaiser:
        // The square root near the ends turns the rounding of 1 - u^2 (up to epsilon) into
        // sqrt(epsilon) times small factors only where I0 is flat: d I0(7 s) = 7 I1(7 s) ds <= 7 * 3.5
        // s * 7 ds / 2 for small s, and s ds <= epsilon. Elsewhere 7 I1/I0 ds < 7 epsilon. Then 25
        // terms of 3 roundings each, all positive, and the quotient: 90 epsilon in all.
        return 90 * epsilon;
    case WindowType::Gaussian:
        // The exponent, at most 3.125, carries about five roundings.
        return 20 * epsilon;
    default:
        // Angles up to 8 pi with two roundings each (the largest effect: 25 * epsilon times a
        // coefficient of at most one half), and a handful of roundings of values up to about one.
        return 32 * epsilon;
    }
}

TEST(CreateWindow, MatchesTheFormulaOfEveryWindow)
{
    for (WindowType type = WindowType::Rectangle; type <= lastWindow;
         type = static_cast<WindowType>(static_cast<std::uint32_t>(type) + 1)) {
        for (const int N : {2, 3, 4, 5, 6, 7, 8, 9, 50, 101, 1000}) {
            std::vector<double> expected;
            expected.reserve(static_cast<std::size_t>(N));
            for (int n = 0; n < N; ++n)
                expected.push_back(static_cast<double>(Formula(type, n, N)));
            EXPECT_TRUE(IsNear(expected, Window(type, N).data(), FormulaTolerance(type)))
                << "window " << static_cast<std::uint32_t>(type) << ", N = " << N;
        }
    }
}

TEST(RectangleWindow, IsOneEverywhere)
{
    for (const int N : {2, 3, 17})
        EXPECT_EQ(Window(WindowType::Rectangle, N),
                  std::vector<double>(static_cast<std::size_t>(N), 1.0));
}

TEST(HannWindow, OfTwoSamplesIsZero)
{
    // cos(2 pi) is 1 to the last bit.
    EXPECT_EQ(Window(WindowType::Hann, 2), (std::vector<double>{0.0, 0.0}));
}

TEST(CreateWindow, EndsHannAndBlackmanInZeroToRounding)
{
    for (const int N : {3, 10, 31}) {
        for (const WindowType type : {WindowType::Hann, WindowType::Blackman}) {
            const std::vector<double> w = Window(type, N);
            EXPECT_NEAR(w.front(), 0.0, 2 * epsilon);
            EXPECT_NEAR(w.back(), 0.0, 2 * epsilon);
        }
    }
}

TEST(CreateWindow, GivesSymmetricWindowsFromATableOfAngles)
{
    for (const int N : {2, 3, 10, 31, 200}) {
        for (const WindowType type :
             {WindowType::Hann, WindowType::Hamming, WindowType::Blackman, WindowType::Flattop}) {
            const std::vector<double> w = Window(type, N);
            const std::vector<double> reversed(w.rbegin(), w.rend());
            EXPECT_TRUE(IsNear(reversed, w.data(), FormulaTolerance(type)));
        }
    }
}

TEST(KaiserWindow, OfFiveSamples)
{
    EXPECT_TRUE(IsNear({0.0059314124, 0.4220846243, 1.0, 0.4220846243, 0.0059314124},
                       Window(WindowType::Kaiser, 5).data(), 5e-11));
}

TEST(GaussianWindow, EndsAtThreeAndAnEighthNepersAndPeaksAtOne)
{
    for (int N = 2; N <= 40; ++N) {
        const std::vector<double> w = Window(WindowType::Gaussian, N);
        EXPECT_NEAR(w.front(), 0.04393693362340742, 20 * epsilon * w.front());
        EXPECT_NEAR(w.back(), 0.04393693362340742, 20 * epsilon * w.back());
        if (N % 2 == 1) {
            EXPECT_EQ(w[static_cast<std::size_t>(N / 2)], 1.0);
        }
    }
}

TEST(TriangWindow, DoesNotReachZero)
{
    EXPECT_EQ(Window(WindowType::Triang, 4), (std::vector<double>{0.25, 0.75, 0.75, 0.25}));
    EXPECT_TRUE(IsNear({1.0 / 3.0, 2.0 / 3.0, 1.0, 2.0 / 3.0, 1.0 / 3.0},
                       Window(WindowType::Triang, 5).data(), epsilon));
}

TEST(BartlettWindow, EndsInZero)
{
    EXPECT_EQ(Window(WindowType::Bartlett, 5), (std::vector<double>{0.0, 0.5, 1.0, 0.5, 0.0}));
    EXPECT_TRUE(
        IsNear({0.0, 2.0 / 3.0, 2.0 / 3.0, 0.0}, Window(WindowType::Bartlett, 4).data(), epsilon));
}

TEST(BartlettWindow, HasTwoEqualMiddleSamplesForEvenLengths)
{
    // One is n / D1 + n / D1, the other 2 less such a number: equal but for the rounding of both.
    for (const int N : {4, 6, 8, 100}) {
        const std::vector<double> w = Window(WindowType::Bartlett, N);
        const auto middle = static_cast<std::size_t>(N / 2);
        EXPECT_NEAR(w[middle - 1], w[middle], epsilon);
    }
}

TEST(ParzenWindow, OfFiveSamples)
{
    EXPECT_TRUE(
        IsNear({0.016, 0.424, 1.0, 0.424, 0.016}, Window(WindowType::Parzen, 5).data(), 4 * epsilon));
}

TEST(CreateWindow, KeepsTheLastParzenSampleZeroForEvenLength)
{
    EXPECT_EQ(Window(WindowType::Parzen, 4), (std::vector<double>{0.25, 1.0, 0.25, 0.0}));
    EXPECT_EQ(Window(WindowType::Parzen, 2), (std::vector<double>{1.0, 0.0}));
    for (const int N : {6, 8, 64})
        EXPECT_TRUE(SameBits(Window(WindowType::Parzen, N).back(), 0.0));
}

TEST(CreateWindow, GivesPeriodicWindowsTheSamplesOfTheSymmetricOnesOfOneMore)
{
    for (const auto& [periodic, symmetric] :
         {std::pair(WindowType::BlackmanHarrisPeriodic, WindowType::BlackmanHarrisSymmetric),
          std::pair(WindowType::NuttallPeriodic, WindowType::NuttallSymmetric)}) {
        for (const int N : {2, 3, 10, 31}) {
            const std::vector<double> longer = Window(symmetric, N + 1);
            const std::vector<double> window = Window(periodic, N);
            for (std::size_t n = 0; n < window.size(); ++n)
                EXPECT_TRUE(SameBits(longer[n], window[n])) << "N = " << N << ", n = " << n;
            EXPECT_GT(std::abs(window.back() - window.front()), 1e-6);
        }
    }
}

TEST(CreateWindow, GivesNotANumberForOneSampleWhereItDividesByZero)
{
    for (const WindowType type : {WindowType::Hann, WindowType::Flattop, WindowType::Kaiser,
                                  WindowType::Gaussian, WindowType::Bartlett, WindowType::BartlettHann,
                                  WindowType::BlackmanHarrisSymmetric, WindowType::NuttallSymmetric})
        EXPECT_TRUE(std::isnan(Window(type, 1)[0])) << static_cast<std::uint32_t>(type);
    EXPECT_EQ(Window(WindowType::Rectangle, 1)[0], 1.0);
}

TEST(GenerateWindow, ReadsItsAnglesForFourWindowsOnly)
{
    const double angles[] = {0.25, 0.5, 1.0};
    EXPECT_EQ(GenerateWindow(WindowType::Hann, angles, 3)[1], 0.5 - 0.5 * Cos(0.5));
    EXPECT_EQ(GenerateWindow(WindowType::Hamming, angles, 3)[1], 0.54 - 0.46 * Cos(0.5));
    for (WindowType type = WindowType::Kaiser; type <= lastWindow;
         type = static_cast<WindowType>(static_cast<std::uint32_t>(type) + 1))
        EXPECT_TRUE(testing::HasSameBits(Window(type, 3), GenerateWindow(type, nullptr, 3).get()));
}

TEST(GenerateWindow, RefusesANegativeLength)
{
    EXPECT_THROW(GenerateWindow(WindowType::Triang, nullptr, -3), std::bad_array_new_length);
    EXPECT_THROW(CreateWindow(WindowType::Triang, -3), std::length_error);
}

TEST(CheckWindowType, AcceptsFifteenTypesAndListsThemOtherwise)
{
    for (int type = 0; type <= 14; ++type)
        EXPECT_NO_THROW(CheckWindowType(type));
    for (const int type : {15, -1, 1000, std::numeric_limits<int>::min()}) {
        try {
            CheckWindowType(type);
            ADD_FAILURE() << "no exception for " << type;
        } catch (const std::invalid_argument& error) {
            EXPECT_STREQ(
                error.what(),
                "windowType should be '0-14'.(Rectangle 0,Hann 1,Hamming 2,Blackman 3,Flattop 4,"
                "Kaiser 5,Gaussian 6,Triang 7,Bartlett 8,Bartlett-Hann 9,"
                "Blackman-Harris(Symmetric) 10,Blackman-Harris(Periodic) 11,Parzen 12,"
                "Nuttall(Symmetric) 13,Nuttall(Periodic) 14)");
        }
    }
}

// Samples that the window takes from their mirror images.
TEST(KaiserWindow, HasTheBitsOfEverySampleByItselfAsHasGaussianWindow)
{
    for (int N = 1; N <= 300; ++N) {
        std::vector<double> w(static_cast<std::size_t>(N));
        KaiserWindow(N, w.data());
        ASSERT_TRUE(HasSameBits(PlainKaiserWindow(N), w.data())) << "Kaiser " << N;
        GaussianWindow(N, w.data());
        ASSERT_TRUE(HasSameBits(PlainGaussianWindow(N), w.data())) << "Gaussian " << N;
        ASSERT_TRUE(HasSameBits(PlainParzenWindow(N), CreateWindow(WindowType::Parzen, N).get()))
            << "Parzen " << N;
    }
}

} // namespace
} // namespace trelvanix
