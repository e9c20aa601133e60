#include "classic/bilinear.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "support/frequency_response.h"

namespace trelvanix
{
namespace
{

using testing::ModelAt;

constexpr double epsilon = std::numeric_limits<double>::epsilon();

using Row = std::vector<double>;

TEST(BilinearSs, TakesHalfASecondAtSamplingFrequencyTwo)
{
    // T1 = 1 - 4/4 = 0, T2 = 1 + 4/4 = 2.
    StateSpace model = {1, {-4.0}, {4.0}, {1.0}, 0.0};
    BilinearSs(model, 2.0);
    const double r = std::sqrt(0.5);
    EXPECT_EQ(model.A, Row{0.0});
    EXPECT_EQ(model.B, Row{0.5 * 2.0 / r});
    EXPECT_EQ(model.C, Row{0.5 * r});
    EXPECT_EQ(model.D, 0.5); // (1/2)(1/2 * 4)(1/2) + 0
}

TEST(BilinearSs, MultipliesBeforeItDivides)
{
    // A sampling frequency whose inverse is no power of two shows the order of the operations.
    StateSpace model = {1, {0.0}, {0.7}, {1.0}, 0.1};
    BilinearSs(model, 3.0);
    volatile const double t = 1.0 / 3.0;
    volatile const double r = std::sqrt(t);
    volatile const double input = t * 0.7;
    volatile const double feedthrough = t * 0.7 * 0.5;
    EXPECT_EQ(model.B[0], input / r);
    EXPECT_NE(model.B[0], 0.7 / r * t);
    EXPECT_EQ(model.C[0], r);
    EXPECT_EQ(model.D, feedthrough + 0.1);
}

TEST(BilinearSs, SubstitutesTheFrequency)
{
    AnalogPrototype prototype = {
        {{0.1, 1.5}, {0.1, -1.5}}, {{-0.4, 0.9}, {-0.4, -0.9}, {-0.8, 0.3}, {-0.8, -0.3}}, 0.7};
    const StateSpace analog = ZpToStateSpace(prototype);
    for (const double fs : {2.0, 0.5, 3.0}) {
        StateSpace digital = analog;
        BilinearSs(digital, fs);
        for (const Complex z : {Complex(0.0, 1.0), Complex(1.2, 0.4), Complex(1.0, 0.0)}) {
            const Complex expected = ModelAt(analog, 2.0 * fs * (z - 1.0) / (z + 1.0));
            EXPECT_LT(std::abs(ModelAt(digital, z) - expected),
                      1000 * epsilon); // hundreds of roundings
        }
    }
}

TEST(BilinearSs, GivesNonFiniteEntriesForAnAnalogPoleAtTwiceTheSamplingFrequency)
{
    StateSpace model = {1, {4.0}, {1.0}, {1.0}, 0.0};
    BilinearSs(model, 2.0);
    EXPECT_FALSE(std::isfinite(model.A[0]));
}

TEST(BilinearSs, LeavesAGain)
{
    StateSpace model = {0, {}, {}, {}, 2.5};
    BilinearSs(model, 2.0);
    EXPECT_EQ(model.D, 2.5);
}

} // namespace
} // namespace trelvanix
