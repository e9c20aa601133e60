#include "fir/remez_grid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <vector>

namespace trelvanix
{
namespace
{

using Row = std::vector<double>;

constexpr double infinity = std::numeric_limits<double>::infinity();

std::vector<double> GridOf(int tapCount, const Row& edges)
{
    return DenseGrid(tapCount, edges.data(), static_cast<int>(edges.size()));
}

RemezProblem ProblemOf(int order, const Row& edges, const Row& amplitudes, const Row& weights = {})
{
    return DesignGrid(order, edges.data(), amplitudes.data(), static_cast<int>(edges.size()),
                      weights.empty() ? nullptr : weights.data(), static_cast<int>(weights.size()));
}

// ---- Grid --------------------------------------------------------------------------------------

TEST(DenseGrid, EndsEachBandOnItsEdges)
{
    // 21 taps, 11 functions: a step of 1 / 176. Band one takes trunc(0.4 * 176 + 1) = 71 points after
    // the first, of which the last one becomes the edge 0.5 of band two; that one takes 89 more.
    const std::vector<double> grid = GridOf(21, {0.0, 0.4, 0.5, 1.0});
    ASSERT_EQ(grid.size(), 160U);
    EXPECT_EQ(grid[0], 0.0);
    for (std::size_t i = 1; i < 70; ++i)
        EXPECT_EQ(grid[i], static_cast<double>(i) * (1.0 / 176.0)) << i;
    EXPECT_EQ(grid[70], 0.4);
    EXPECT_EQ(grid[71], 0.5);
    EXPECT_EQ(grid[72], 0.5 + 1.0 / 176.0);
    EXPECT_EQ(grid[159], 1.0);
}

TEST(DenseGrid, HasTheSharedEdgeOfTouchingBandsTwice)
{
    const std::vector<double> grid = GridOf(21, {0.0, 0.4, 0.4, 1.0});
    EXPECT_EQ(std::count(grid.begin(), grid.end(), 0.4), 2);
    EXPECT_TRUE(std::is_sorted(grid.begin(), grid.end()));
}

TEST(DenseGrid, DropsThePointAtNyquistForAnEvenTapCount)
{
    // 20 taps, 10 functions: a step of 1 / 160. 1 goes, and nothing else lies above 1 - 1/160.
    const std::vector<double> grid = GridOf(20, {0.0, 0.4, 0.5, 1.0});
    EXPECT_LE(grid.back(), 1.0 - 1.0 / 160.0 + 1e-15);
    EXPECT_EQ(GridOf(21, {0.0, 0.4, 0.5, 1.0}).back(), 1.0);
}

TEST(DenseGrid, KeepsANarrowLastBandAtItsLowerEdgeForAnEvenTapCount)
{
    // The last band, from 0.999, lies within a step of Nyquist altogether: its last point moves to
    // 0.999.
    const std::vector<double> grid = GridOf(20, {0.0, 0.4, 0.999, 1.0});
    EXPECT_EQ(grid.back(), 0.999);
    EXPECT_EQ(std::count(grid.begin(), grid.end(), 1.0), 0);
}

TEST(DenseGrid, GivesANarrowBandTenSteps)
{
    // 31 taps, 16 functions: a step of 1 / 256, and a first band of 1.25 of them.
    const std::vector<double> grid = GridOf(31, {0.0, 10.0 / 2048.0, 0.125, 1.0});
    for (std::size_t i = 0; i <= 10; ++i)
        EXPECT_EQ(grid[i], static_cast<double>(i) / 2048.0);
    EXPECT_EQ(grid[11], 0.125);
    EXPECT_EQ(grid[12], 0.125 + 1.0 / 256.0);
}

TEST(DenseGrid, GrowsDenserUntilThereAreMorePointsThanTaps)
{
    // 61 taps, 31 functions. With 16 points each, a step of 1 / 496, both bands of width 0.01 are
    // narrow: 11 points each. With 64, trunc(0.01 * 1984 + 1) = 20 steps, some 40 points: still
    // fewer than taps. With 256, trunc(0.01 * 7936 + 1) = 80 points a band.
    const std::vector<double> grid = GridOf(61, {0.0, 0.01, 0.99, 1.0});
    EXPECT_EQ(grid.size(), 160U);
    EXPECT_EQ(grid[1], 1.0 / 7936.0);
    EXPECT_EQ(grid[79], 0.01);
    EXPECT_EQ(grid[80], 0.99);
}

TEST(DenseGrid, GivesABandWithoutWidthOnePoint)
{
    const std::vector<double> last = GridOf(21, {0.0, 0.4, 1.0, 1.0});
    EXPECT_EQ(std::count(last.begin(), last.end(), 1.0), 1);
    EXPECT_EQ(last[last.size() - 2], 0.4);

    const std::vector<double> first = GridOf(21, {0.0, 0.0, 0.4, 1.0});
    EXPECT_EQ(first[0], 0.0);
    EXPECT_EQ(first[1], 0.4);

    // A band of one rounding cannot be stepped through either.
    const double next = std::nextafter(0.6, 1.0);
    const std::vector<double> rounding = GridOf(21, {0.0, 0.4, 0.6, next, 0.7, 1.0});
    EXPECT_EQ(std::count(rounding.begin(), rounding.end(), next), 1);
    EXPECT_EQ(std::count(rounding.begin(), rounding.end(), 0.6), 0);
    EXPECT_EQ(*(std::find(rounding.begin(), rounding.end(), next) + 1), 0.7);
}

TEST(DenseGrid, ThrowsLengthErrorForBandsWithoutAnyWidth)
{
    EXPECT_EQ(GridOf(1, {0.0, 0.0, 1.0, 1.0}), (Row{0.0, 1.0}));
    EXPECT_THROW(GridOf(2, {0.0, 0.0, 1.0, 1.0}), std::length_error);
    EXPECT_THROW(GridOf(1001, {0.0, 0.0, 1.0, 1.0}), std::length_error);
}

TEST(DenseGrid, EndsTheGrowthOfTheDensityForTinyBands)
{
    EXPECT_GT(GridOf(21, {0.0, 1e-12, 1.0, 1.0}).size(), 21U);
    EXPECT_GT(GridOf(21, {0.0, 1e-300, 1.0, 1.0}).size(), 21U);
    // No step is small enough for this one.
    EXPECT_THROW(GridOf(21, {0.0, 5e-324, 1.0, 1.0}), std::length_error);
}

TEST(DenseGrid, ThrowsLengthErrorForTooManyPoints)
{
    for (const double edge : {1e8, -1e8, 1e300, std::numeric_limits<double>::max()}) {
        try {
            GridOf(21, {0.0, edge, 0.5, 1.0});
            FAIL() << "accepted " << edge;
        } catch (const std::length_error& error) {
            EXPECT_STREQ(error.what(), "vector too long");
        }
    }
    EXPECT_THROW(GridOf(21, {0.0, -infinity, 0.5, 1.0}), std::length_error);
    EXPECT_THROW(GridOf(1 << 30, {0.0, 0.5, 0.5, 1.0}), std::length_error);
    // 8 points a tap: 2^24 and a few more.
    EXPECT_LE(GridOf((1 << 21) - 41, {0.0, 0.5, 0.5, 1.0}).size(), std::size_t{1} << 24);
    EXPECT_THROW(GridOf((1 << 21) + 41, {0.0, 0.5, 0.5, 1.0}), std::length_error);
}

TEST(DenseGrid, GivesAGridForEdgesOutOfOrder)
{
    // Reversed bands, wide and narrow; the first leaves nothing but the point it starts from.
    for (const Row& edges : {Row{0.0, 0.6, 0.4, 1.0}, Row{0.0, -0.001, 0.5, 1.0},
                             Row{0.0, -0.5, 0.5, 1.0}, Row{0.0, 0.3, 0.3, -2.0, -2.0, 1.0},
                             Row{0.0, 1.001, 1.001, 1.0}, Row{0.0, -0.001, 1.001, 1.0}}) {
        for (const int tapCount : {1, 2, 3, 20, 21}) {
            const std::vector<double> grid = GridOf(tapCount, edges);
            EXPECT_GT(grid.size(), static_cast<std::size_t>(tapCount));
            for (const double g : grid)
                EXPECT_TRUE(std::isfinite(g));
        }
    }
}

// ---- Desired response and weights --------------------------------------------------------------

TEST(DesignGrid, MakesAmplitudesLinearInEachBand)
{
    const RemezProblem problem = ProblemOf(20, {0.0, 0.5, 0.75, 1.0}, {0.0, 2.0, 1.0, 0.0});
    for (std::size_t i = 0; i < problem.grid.size(); ++i) {
        const double g = problem.grid[i];
        // Amplitudes up to 4: a rounding each for slope, product and two sums.
        EXPECT_NEAR(problem.desired[i], g <= 0.5 ? 4.0 * g : 4.0 - 4.0 * g, 8e-16) << g;
        EXPECT_EQ(problem.weight[i], 1.0);
    }
}

TEST(DesignGrid, CountsASharedEdgeToTheLaterBand)
{
    const RemezProblem problem = ProblemOf(20, {0.0, 0.4, 0.4, 1.0}, {1.0, 1.0, 0.0, 0.0}, {2.0, 3.0});
    int onEdge = 0;
    for (std::size_t i = 0; i < problem.grid.size(); ++i) {
        const bool upper = problem.grid[i] >= 0.4;
        EXPECT_EQ(problem.desired[i], upper ? 0.0 : 1.0);
        EXPECT_EQ(problem.weight[i], upper ? 3.0 : 2.0);
        onEdge += problem.grid[i] == 0.4 ? 1 : 0;
    }
    EXPECT_EQ(onEdge, 2);
}

TEST(DesignGrid, TakesTheMeanOfItsAmplitudesForABandWithoutWidth)
{
    const RemezProblem first = ProblemOf(20, {0.0, 0.0, 0.4, 1.0}, {1.0, 0.5, 0.0, 0.0});
    EXPECT_EQ(first.grid[0], 0.0);
    EXPECT_EQ(first.desired[0], 0.75);
    EXPECT_EQ(first.desired[1], 0.0);
    const RemezProblem last = ProblemOf(20, {0.0, 0.4, 1.0, 1.0}, {0.0, 0.0, 0.5, 1.0});
    EXPECT_EQ(last.grid.back(), 1.0);
    EXPECT_EQ(last.desired.back(), 0.75);
}

TEST(DesignGrid, GivesPointsInNoBandNoWeight)
{
    const RemezProblem problem = ProblemOf(20, {0.0, 0.6, 0.8, 0.7, 0.9, 1.0}, {1, 1, 0, 0, 1, 1});
    int outside = 0;
    for (std::size_t i = 0; i < problem.grid.size(); ++i) {
        if (problem.grid[i] > 0.6 && problem.grid[i] < 0.9) {
            ++outside;
            EXPECT_EQ(problem.desired[i], 0.0);
            EXPECT_EQ(problem.weight[i], 0.0);
        }
    }
    EXPECT_GT(outside, 0);
}

TEST(DesignGrid, KeepsIgnoringWeightsOfAnotherCount)
{
    const Row edges = {0.0, 0.4, 0.5, 1.0};
    const Row amplitudes = {1.0, 1.0, 0.0, 0.0};
    for (const Row& weights : {Row{7.0}, Row{7.0, 8.0, 9.0}}) {
        for (const double weight : ProblemOf(20, edges, amplitudes, weights).weight)
            EXPECT_EQ(weight, 1.0);
    }
    const RemezProblem weighted = ProblemOf(20, edges, amplitudes, {7.0, 8.0});
    EXPECT_EQ(weighted.weight.front(), 7.0);
    EXPECT_EQ(weighted.weight.back(), 8.0);
    // A count without an array is no weights either.
    const RemezProblem null = DesignGrid(20, edges.data(), amplitudes.data(), 4, nullptr, 2);
    EXPECT_EQ(null.weight.front(), 1.0);
}

} // namespace
} // namespace trelvanix
