#include "math/bounded_minimum.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace trelvanix
{
namespace
{

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(BoundedMinimum, FindsTheBottomOfAParabolaInOneParabolicStep)
{
    int calls = 0;
    const auto parabola = [&calls](double x) {
        ++calls;
        return (x - 0.7) * (x - 0.7);
    };
    EXPECT_NEAR(BoundedMinimum(parabola, 0.0, 2.0), 0.7, 1e-6);
    // Golden section alone takes 22 evaluations to get from 2 to 1e-4.
    EXPECT_LE(calls, 8);
}

TEST(BoundedMinimum, FindsMinimaWithoutDerivative)
{
    EXPECT_NEAR(BoundedMinimum([](double x) { return std::fabs(x - 0.3); }, -1.0, 1.0), 0.3, 1e-4);
    EXPECT_NEAR(BoundedMinimum([](double x) { return std::cos(x); }, 0.0, 6.0), 3.141592653589793,
                1e-4);
}

TEST(BoundedMinimum, ComesCloseToABoundWithoutEvaluatingIt)
{
    const auto rising = [](double x) {
        EXPECT_GT(x, 1.0);
        EXPECT_LT(x, 2.0);
        return x;
    };
    EXPECT_NEAR(BoundedMinimum(rising, 1.0, 2.0), 1.0, 2e-4);
    EXPECT_NEAR(BoundedMinimum([&](double x) { return -rising(x); }, 1.0, 2.0), 2.0, 2e-4);
}

TEST(BoundedMinimum, IsNotANumberForBoundsThatAreNotFinite)
{
    const auto never = [](double) -> double {
        ADD_FAILURE() << "evaluated";
        return 0.0;
    };
    for (const double bad : {inf, -inf, nan}) {
        EXPECT_TRUE(std::isnan(BoundedMinimum(never, bad, 1.0)));
        EXPECT_TRUE(std::isnan(BoundedMinimum(never, 0.0, bad)));
    }
}

TEST(BoundedMinimum, EndsForFunctionsWithoutValues)
{
    for (const double value : {nan, inf, -inf, 0.0}) {
        int calls = 0;
        const double x = BoundedMinimum(
            [&](double) {
                ++calls;
                return value;
            },
            0.0, 1.0);
        EXPECT_GT(x, 0.0);
        EXPECT_LT(x, 1.0);
        EXPECT_LE(calls, 40);
    }
}

TEST(BoundedMinimum, EndsForReversedAndForHugeBounds)
{
    const auto square = [](double x) { return x * x; };
    const double reversed = BoundedMinimum(square, 2.0, 1.0);
    EXPECT_GE(reversed, 1.0);
    EXPECT_LE(reversed, 2.0);
    EXPECT_EQ(BoundedMinimum(square, 1.5, 1.5), 1.5);
    EXPECT_LT(BoundedMinimum(square, -1e16, 1e16), 1e9);
    BoundedMinimum(square, -1e308, 1e308);
}

} // namespace
} // namespace trelvanix
