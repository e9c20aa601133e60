#include "classic/state_space.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "support/frequency_response.h"
#include "support/samples.h"

namespace trelvanix
{
namespace
{

using testing::ModelAt;
using testing::ProductFromRoots;

constexpr double epsilon = std::numeric_limits<double>::epsilon();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

using Row = std::vector<double>;

StateSpace Realised(std::vector<Complex> zeros, std::vector<Complex> poles, double gain)
{
    AnalogPrototype prototype = {std::move(zeros), std::move(poles), gain};
    return ZpToStateSpace(prototype);
}

TEST(ZpToStateSpace, IsAGainWithoutPoles)
{
    const StateSpace model = Realised({}, {}, 2.5);
    EXPECT_EQ(model.order, 0);
    EXPECT_TRUE(model.A.empty());
    EXPECT_EQ(model.D, 2.5);
}

TEST(ZpToStateSpace, StartsWithTheUnpairedPole)
{
    const StateSpace model = Realised({}, {-3.0}, 1.0);
    EXPECT_EQ(model.A, Row{-3.0});
    EXPECT_EQ(model.B, Row{1.0});
    EXPECT_EQ(model.C, Row{1.0});
    EXPECT_EQ(model.D, 0.0);
}

TEST(ZpToStateSpace, JoinsTheUnpairedPoleWithTheUnpairedZero)
{
    // (s + 1) / (s + 3) = 1 - 2 / (s + 3).
    const StateSpace model = Realised({-1.0}, {-3.0}, 1.0);
    EXPECT_EQ(model.A, Row{-3.0});
    EXPECT_EQ(model.B, Row{1.0});
    EXPECT_EQ(model.C, Row{-2.0});
    EXPECT_EQ(model.D, 1.0);
}

TEST(ZpToStateSpace, BalancesAPairOfPoles)
{
    // s^2 + 4 with wn = 2: the entries -4 and 1 become -2 and 2.
    const StateSpace model = Realised({}, {{0.0, 2.0}, {0.0, -2.0}}, 1.0);
    EXPECT_EQ(model.A, (Row{0.0, -2.0, 2.0, 0.0}));
    EXPECT_EQ(model.B, (Row{1.0, 0.0}));
    EXPECT_EQ(model.C, (Row{0.0, 0.5}));
    EXPECT_EQ(model.D, 0.0);
}

TEST(ZpToStateSpace, JoinsPairsOfZerosWithPairsOfPoles)
{
    // (s^2 + 1) / (s^2 + 4) = 1 - 3 / (s^2 + 4).
    const StateSpace model = Realised({{0.0, 1.0}, {0.0, -1.0}}, {{0.0, 2.0}, {0.0, -2.0}}, 1.0);
    EXPECT_EQ(model.A, (Row{0.0, -2.0, 2.0, 0.0}));
    EXPECT_EQ(model.C, (Row{0.0, -1.5}));
    EXPECT_EQ(model.D, 1.0);
}

TEST(ZpToStateSpace, JoinsAnUnpairedZeroWithTheLastPairOfPoles)
{
    // (s + 3) / (s^2 + 4).
    const StateSpace model = Realised({-3.0}, {{0.0, 2.0}, {0.0, -2.0}}, 1.0);
    EXPECT_EQ(model.A, (Row{0.0, -2.0, 2.0, 0.0}));
    EXPECT_EQ(model.C, (Row{1.0, 1.5}));
    EXPECT_EQ(model.D, 0.0);
}

TEST(ZpToStateSpace, ScalesPolesAtTheOriginByOne)
{
    const StateSpace model = Realised({}, {0.0, 0.0}, 1.0);
    EXPECT_EQ(model.A, (Row{0.0, 0.0, 1.0, 0.0}));
    EXPECT_EQ(model.C, (Row{0.0, 1.0}));
}

TEST(ZpToStateSpace, ConnectsSectionsInSeries)
{
    const StateSpace model = Realised({}, {{0.0, 2.0}, -1.0, {0.0, -2.0}}, 1.0);
    EXPECT_EQ(model.A, (Row{-1.0, 0.0, 0.0, 1.0, 0.0, -2.0, 0.0, 2.0, 0.0}));
    EXPECT_EQ(model.B, (Row{1.0, 0.0, 0.0}));
    EXPECT_EQ(model.C, (Row{0.0, 0.0, 0.5}));
    EXPECT_EQ(model.D, 0.0);
}

TEST(ZpToStateSpace, ScalesTheOutputByTheGain)
{
    const StateSpace model = Realised({-1.0}, {-3.0}, -4.0);
    EXPECT_EQ(model.A, Row{-3.0});
    EXPECT_EQ(model.B, Row{1.0});
    EXPECT_EQ(model.C, Row{8.0});
    EXPECT_EQ(model.D, -4.0);
}

TEST(ZpToStateSpace, PairsThePrototypeInPlace)
{
    AnalogPrototype prototype = {{}, {-1.0, {-0.5, 0.8}, {-0.5, -0.8}}, 1.0};
    ZpToStateSpace(prototype);
    EXPECT_EQ(prototype.poles, (std::vector<Complex>{{-0.5, -0.8}, {-0.5, 0.8}, -1.0}));
}

TEST(ZpToStateSpace, KeepsTheRealPartOfAnUnpairedPole)
{
    EXPECT_EQ(Realised({}, {{0.0, -0.9}}, 1.0).A, Row{0.0});
}

TEST(ZpToStateSpace, HasTheResponseOfItsZerosAndPoles)
{
    testing::Samples samples(431);
    const auto pairs = [&](int count, double shift) {
        std::vector<Complex> values;
        for (int i = 0; i < count; ++i) {
            const Complex value(samples.Next() + shift, samples.Next() + 2.0);
            values.push_back(value);
            values.push_back(std::conj(value));
        }
        return values;
    };
    for (int round = 0; round < 30; ++round) {
        std::vector<Complex> poles = pairs(1 + samples.NextBelow(4), -1.0);
        std::vector<Complex> zeros =
            pairs(samples.NextBelow(static_cast<int>(poles.size()) / 2 + 1), 0.0);
        if (round % 2 != 0)
            poles.emplace_back(samples.Next() - 1.0);
        if (round % 4 == 3)
            zeros.emplace_back(samples.Next() - 1.0);
        const Complex s(0.3, 0.7);
        const Complex expected = 1.5 * ProductFromRoots(zeros, s) / ProductFromRoots(poles, s);
        const Complex got = ModelAt(Realised(zeros, poles, 1.5), s);
        // Up to nine states with entries below 10: some hundred roundings, cancellation by ten.
        EXPECT_LT(std::abs(got - expected), 1e4 * epsilon * (1.5 + std::abs(expected))) << round;
    }
}

TEST(StatePoles, AreTheEigenvaluesOfTheStateMatrix)
{
    const StateSpace model = Realised({}, {{0.0, 2.0}, -1.0, {0.0, -2.0}}, 1.0);
    const std::vector<Complex> poles = StatePoles(model);
    EXPECT_EQ(model.A.front(), -1.0);
    ASSERT_EQ(poles.size(), 3U);
    for (const Complex p : poles)
        EXPECT_LT(std::abs((p + 1.0) * (p * p + 4.0)), 100.0 * epsilon);
}

TEST(StatePoles, AreNotNumbersForAModelThatIsNone)
{
    for (const Complex p : StatePoles({3, Row(9, nan), Row(3), Row(3), 0.0}))
        EXPECT_TRUE(std::isnan(p.real()));
}

} // namespace
} // namespace trelvanix
