#include "math/complex_functions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <limits>

#include "exact_values.h"
#include "math/exponential.h"
#include "math/trigonometric.h"

namespace trelvanix
{
namespace
{

using testing::AreSameBits;
using testing::RandomPairs;

constexpr double inf = std::numeric_limits<double>::infinity();

::testing::AssertionResult AreSameParts(Complex expected, Complex got)
{
    const auto real = AreSameBits(expected.real(), got.real());
    return real ? AreSameBits(expected.imag(), got.imag()) : real;
}

// |got - expected| relative to |expected|.
double Difference(Complex expected, std::complex<long double> got)
{
    const std::complex<long double> exact(expected.real(), expected.imag());
    return static_cast<double>(std::abs(exact - got) / std::abs(got));
}

TEST(UnitPhasor, LiesOnTheUnitCircle)
{
    EXPECT_EQ(UnitPhasor(0.0), Complex(1.0, 0.0));
    // cos of the double nearest to pi/2 is the distance of that double from pi/2.
    EXPECT_EQ(UnitPhasor(1.5707963267948966), Complex(6.123233995736766e-17, 1.0));
}

TEST(UnitPhasor, HasTheSignOfAZeroAngle)
{
    EXPECT_TRUE(AreSameBits(UnitPhasor(-0.0).imag(), -0.0));
    EXPECT_TRUE(AreSameBits(UnitPhasor(0.0).imag(), 0.0));
}

TEST(Sine, IsOnTheAxesWhatTheRealFunctionsAre)
{
    for (const double x : {0.0, -0.0, 0.5, -2.0, 10.0}) {
        EXPECT_EQ(Sine({x, 0.0}).real(), Sin(x));
        EXPECT_EQ(Sine({0.0, x}).imag(), Sinh(x));
        EXPECT_EQ(Cosine({x, 0.0}).real(), Cos(x));
        EXPECT_EQ(Cosine({0.0, x}).real(), Cosh(x));
    }
    EXPECT_TRUE(AreSameParts({0.0, -0.0}, Sine({0.0, -0.0})));
    EXPECT_TRUE(AreSameParts({1.0, -0.0}, Cosine({0.0, 0.0})));
}

TEST(Sine, TakesItsFormulaAsWritten)
{
    const double x = 0.7, y = -1.3;
    EXPECT_TRUE(AreSameParts({Sin(x) * Cosh(y), Cos(x) * Sinh(y)}, Sine({x, y})));
    EXPECT_TRUE(AreSameParts({Cos(x) * Cosh(y), -(Sin(x) * Sinh(y))}, Cosine({x, y})));
}

// Two roundings of factors and one of the product for each part: three units of 2^-53.
TEST(Sine, IsCloseToTheExactValue)
{
    RandomPairs random(31);
    for (int i = 0; i < 500; ++i) {
        const Complex z(random.Uniform(-6.0, 6.0), random.Uniform(-6.0, 6.0));
        const std::complex<long double> exact(z.real(), z.imag());
        ASSERT_LT(Difference(Sine(z), std::sin(exact)), 4e-16) << z;
        ASSERT_LT(Difference(Cosine(z), std::cos(exact)), 4e-16) << z;
    }
}

TEST(SquareRoot, IsExactForSquaresOfWholeNumbers)
{
    EXPECT_TRUE(AreSameParts({2.0, 1.0}, SquareRoot({3.0, 4.0})));
    EXPECT_TRUE(AreSameParts({2.0, -1.0}, SquareRoot({3.0, -4.0})));
    EXPECT_TRUE(AreSameParts({1.0, 2.0}, SquareRoot({-3.0, 4.0})));
    EXPECT_TRUE(AreSameParts({1.0, -2.0}, SquareRoot({-3.0, -4.0})));
    EXPECT_TRUE(AreSameParts({3.0, 0.0}, SquareRoot({9.0, 0.0})));
}

TEST(SquareRoot, HasItsCutOnTheNegativeAxisWithTheSignOfZero)
{
    EXPECT_TRUE(AreSameParts({0.0, 2.0}, SquareRoot({-4.0, 0.0})));
    EXPECT_TRUE(AreSameParts({0.0, -2.0}, SquareRoot({-4.0, -0.0})));
    EXPECT_TRUE(AreSameParts({2.0, -0.0}, SquareRoot({4.0, -0.0})));
    EXPECT_TRUE(AreSameParts({0.0, 0.0}, SquareRoot({0.0, 0.0})));
    EXPECT_TRUE(AreSameParts({0.0, -0.0}, SquareRoot({-0.0, -0.0})));
}

TEST(SquareRoot, IsCloseToTheExactValue)
{
    RandomPairs random(37);
    for (int i = 0; i < 500; ++i) {
        const Complex z(random.Uniform(-6.0, 6.0), random.Uniform(-6.0, 6.0));
        const std::complex<long double> exact(z.real(), z.imag());
        ASSERT_LT(Difference(SquareRoot(z), std::sqrt(exact)), 5e-16) << z;
    }
}

TEST(ArcCosine, IsOnTheUnitIntervalWhatTheRealFunctionIs)
{
    // Either square root is within 2 u, u = 2^-53, which moves the angle by 4 u at most; the arc
    // tangent rounds by pi u more.
    for (const double x : {-1.0, -0.9, -0.5, 0.0, 0.3, 0.99, 1.0}) {
        EXPECT_NEAR(ArcCosine({x, 0.0}).real(), Acos(x), 8e-16) << x;
        EXPECT_EQ(ArcCosine({x, 0.0}).imag(), 0.0) << x;
    }
    EXPECT_EQ(ArcCosine({1.0, 0.0}).real(), 0.0);
    EXPECT_EQ(ArcCosine({0.0, 0.0}).real(), 2.0 * Atan2(1.0, 1.0));
}

TEST(ArcCosine, ContinuesTheSideThatTheSignOfZeroNames)
{
    EXPECT_LT(ArcCosine({2.0, 0.0}).imag(), 0.0);
    EXPECT_GT(ArcCosine({2.0, -0.0}).imag(), 0.0);
    EXPECT_NEAR(ArcCosine({2.0, 0.0}).imag(), -Acosh(2.0), 4e-16);
    EXPECT_NEAR(ArcCosine({-2.0, 0.0}).imag(), -Acosh(2.0), 4e-16);
}

// Its errors are absolute near 1, where the square roots cancel: ten units of 2^-53 against the value
// of the cosine put back.
TEST(ArcCosine, IsUndoneByTheCosine)
{
    RandomPairs random(41);
    for (int i = 0; i < 500; ++i) {
        const Complex z(random.Uniform(-3.0, 3.0), random.Uniform(-3.0, 3.0));
        ASSERT_LT(std::abs(Cosine(ArcCosine(z)) - z), 4e-15) << z;
    }
}

TEST(ComplexFunctions, GiveNotANumberForNotANumber)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    for (const double x : {inf, -inf, nan, 1e308, 0.5, -0x1p-1074, 0.0}) {
        for (const Complex z : {Complex(x, nan), Complex(nan, x)}) {
            for (const Complex value : {Sine(z), Cosine(z), SquareRoot(z), ArcCosine(z)})
                EXPECT_TRUE(std::isnan(value.real()) || std::isnan(value.imag())) << z;
        }
    }
}

TEST(ComplexFunctions, OverflowWhereTheirFormulasDo)
{
    EXPECT_EQ(SquareRoot({1e308, 1e308}).real(), inf);
    EXPECT_EQ(SquareRoot({inf, 1.0}).real(), inf);
    EXPECT_EQ(Sine({1.0, 1000.0}), Complex(inf, inf));
    EXPECT_EQ(Cosine({1.0, 1000.0}), Complex(inf, -inf));
}

} // namespace
} // namespace trelvanix
