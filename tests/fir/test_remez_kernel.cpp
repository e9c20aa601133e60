#include "fir/remez_kernel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "support/bits.h"
#include "support/instruction_sets.h"
#include "support/plain_kernels.h"
#include "support/samples.h"

namespace trelvanix
{
namespace
{

using Row = std::vector<double>;
using testing::AvailableInstructionSets;
using testing::HasSameBits;
using testing::PlainInterpolation;
using testing::PlainLagrangeWeight;
using testing::SameBits;
using testing::Samples;

constexpr double pi = 3.141592653589793;
constexpr double epsilon = std::numeric_limits<double>::epsilon();

Row WeightsOf(InstructionSet set, const Row& x, int groupCount)
{
    Row weights(x.size());
    KernelsFor<RemezKernels>(set).lagrangeWeights(x.data(), static_cast<int>(x.size()), groupCount,
                                                  weights.data());
    return weights;
}

Row ValuesOf(InstructionSet set, const Row& x, const Row& weights, const Row& y, const Row& xf)
{
    Row values(xf.size());
    KernelsFor<RemezKernels>(set).interpolate(x.data(), weights.data(), y.data(),
                                              static_cast<int>(x.size()), xf.data(),
                                              static_cast<int>(xf.size()), values.data());
    return values;
}

// ---- Lagrange weights --------------------------------------------------------------------------

TEST(LagrangeWeights, AreTheReciprocalsOfTheProductsOfTwiceTheDifferences)
{
    for (const InstructionSet set : AvailableInstructionSets()) {
        // 2 (1 - 0) * 2 (1 + 1), 2 (0 - 1) * 2 (0 + 1), 2 (-1 - 1) * 2 (-1 - 0)
        EXPECT_EQ(WeightsOf(set, {1.0, 0.0, -1.0}, 1), (Row{1.0 / 8.0, -1.0 / 4.0, 1.0 / 8.0}));
        EXPECT_EQ(WeightsOf(set, {1.0}, 1), Row{1.0});
    }
}

TEST(LagrangeWeights, KeepLeavingOutEqualNodes)
{
    for (const InstructionSet set : AvailableInstructionSets()) {
        EXPECT_EQ(WeightsOf(set, {1.0, 1.0, 0.5}, 1), (Row{1.0, 1.0, 1.0}));
        EXPECT_EQ(WeightsOf(set, {0.5, 0.5, 0.5}, 1), (Row{1.0, 1.0, 1.0}));
    }
}

TEST(LagrangeWeights, MultiplyOneGroupAfterAnother)
{
    const Row x = {0.9, -1.0, -0.11, 0.44, -0.54, 0.89};
    const auto factor = [&](std::size_t j) { return 2.0 * (0.9 - x[j]); };
    const double even = factor(2) * factor(4);
    const double odd = factor(1) * factor(3) * factor(5);
    const double inOneGo = factor(1) * factor(2) * factor(3) * factor(4) * factor(5);
    // The order shows in the last bit: these nodes were chosen for it.
    ASSERT_FALSE(SameBits(1.0 / (even * odd), 1.0 / inOneGo));
    for (const InstructionSet set : AvailableInstructionSets()) {
        EXPECT_TRUE(SameBits(WeightsOf(set, x, 2)[0], 1.0 / (even * odd)));
        EXPECT_TRUE(SameBits(WeightsOf(set, x, 1)[0], 1.0 / inOneGo));
    }
}

TEST(LagrangeWeights, StayWithinRangeByGroupsThatOverflowInOneGo)
{
    // Ten factors of 1e40, then ten of 1e-40: the first ten alone exceed the range. Ten groups bring one
    // of each together.
    Row x = {0.0};
    for (int j = 0; j < 10; ++j)
        x.push_back(-5e39);
    for (int j = 0; j < 10; ++j)
        x.push_back(-5e-41);
    for (const InstructionSet set : AvailableInstructionSets()) {
        EXPECT_EQ(WeightsOf(set, x, 1)[0], 0.0);
        EXPECT_NEAR(WeightsOf(set, x, 10)[0], 1.0, 40 * epsilon);
    }
}

void ExpectPlainWeights(const Row& x, int groupCount)
{
    Row plain;
    for (std::size_t k = 0; k < x.size(); ++k)
        plain.push_back(PlainLagrangeWeight(k, static_cast<std::size_t>(groupCount), x));
    for (const InstructionSet set : AvailableInstructionSets()) {
        ASSERT_TRUE(HasSameBits(plain, WeightsOf(set, x, groupCount).data()))
            << "instruction set " << static_cast<int>(set) << ", " << x.size() << " nodes, "
            << groupCount << " groups";
    }
}

TEST(LagrangeWeights, HaveTheBitsOfThePlainForm)
{
    Samples samples(611);
    for (int count = 1; count <= 100; ++count) {
        const auto n = static_cast<std::size_t>(count);
        for (const int groupCount : {1, 1 + count / 15, count}) {
            ExpectPlainWeights(samples.Plain(n), groupCount);
            ExpectPlainWeights(samples.Hostile(n), groupCount);
        }
    }
    ExpectPlainWeights(samples.Plain(300), 20);
}

// ---- Values ------------------------------------------------------------------------------------

void ExpectPlainValues(const Row& x, const Row& weights, const Row& y, const Row& xf)
{
    Row plain;
    for (const double point : xf)
        plain.push_back(PlainInterpolation(x, weights, y, point));
    for (const InstructionSet set : AvailableInstructionSets()) {
        ASSERT_TRUE(HasSameBits(plain, ValuesOf(set, x, weights, y, xf).data()))
            << "instruction set " << static_cast<int>(set) << ", " << x.size() << " nodes, "
            << xf.size() << " points";
    }
}

TEST(Interpolate, HasTheBitsOfThePlainForm)
{
    Samples samples(612);
    for (std::size_t nodes = 0; nodes <= 40; ++nodes) {
        for (const std::size_t points :
             {0U, 1U, 2U, 3U, 4U, 5U, 7U, 8U, 9U, 15U, 16U, 17U, 31U, 32U, 33U}) {
            Row x = samples.Plain(nodes);
            Row xf = samples.Plain(points);
            if (nodes > 0 && points > 0)
                xf.back() = x[nodes / 2]; // a point at a node
            ExpectPlainValues(x, samples.Plain(nodes), samples.Plain(nodes), xf);
            ExpectPlainValues(samples.Hostile(nodes), samples.Hostile(nodes), samples.Hostile(nodes),
                              samples.Hostile(points));
        }
    }
    for (std::size_t points = 0; points <= 300; ++points)
        ExpectPlainValues(samples.Plain(11), samples.Plain(11), samples.Plain(11),
                          samples.Plain(points));
    ExpectPlainValues(samples.Plain(300), samples.Plain(300), samples.Plain(300), samples.Plain(300));
}

TEST(Interpolate, WritesOverItsPoints)
{
    Samples samples(613);
    const Row x = samples.Plain(9), weights = samples.Plain(9), y = samples.Plain(9);
    const Row xf = samples.Plain(21);
    for (const InstructionSet set : AvailableInstructionSets()) {
        Row inPlace = xf;
        KernelsFor<RemezKernels>(set).interpolate(x.data(), weights.data(), y.data(), 9, inPlace.data(),
                                                  21, inPlace.data());
        EXPECT_TRUE(HasSameBits(ValuesOf(set, x, weights, y, xf), inPlace.data()));
    }
}

// ---- Both --------------------------------------------------------------------------------------

// The sum of a[k] cos(2 pi f k) at cos(2 pi f) = x, by the recurrence of the cosines.
double FrequencyResponse(const Row& a, double x)
{
    long double sum = 0.0L, before = x, now = 1.0L; // cosines of -1 and 0 times the angle
    for (const double coefficient : a) {
        sum += coefficient * now;
        const long double next = 2.0L * x * now - before;
        before = now;
        now = next;
    }
    return static_cast<double>(sum);
}

TEST(Interpolate, GivesTheFrequencyResponseThatHasTheValues)
{
    Samples samples(614);
    for (const int count : {1, 2, 3, 9, 16, 17, 33, 50}) {
        const Row a = samples.Plain(static_cast<std::size_t>(count));
        // One node more than cosines, each near an extremum of a Chebyshev polynomial.
        Row x, y, xf;
        for (int j = 0; j <= count; ++j)
            x.push_back(std::cos(pi * (j + 0.3 * samples.Next()) / count));
        for (const double node : x)
            y.push_back(FrequencyResponse(a, node));
        for (int i = 0; i < 40; ++i)
            xf.push_back(samples.Next());
        for (const InstructionSet set : AvailableInstructionSets()) {
            const Row weights = WeightsOf(set, x, 1 + count / 15);
            const Row values = ValuesOf(set, x, weights, y, xf);
            for (std::size_t i = 0; i < xf.size(); ++i) {
                // Each term has the rounding of its weight (a product of count + 1 factors), of the value there
                // and of its own three operations; each sum adds count + 1 of them (Higham 2002, chapter 4).
                double terms = 0.0, sum = 0.0;
                for (std::size_t j = 0; j < x.size(); ++j) {
                    const double c = weights[j] / (xf[i] - x[j]);
                    terms += std::fabs(c) * (std::fabs(y[j]) + std::fabs(values[i]));
                    sum += c;
                }
                const double bound = (2.0 * count + 8.0) * epsilon * terms / std::fabs(sum);
                EXPECT_NEAR(values[i], FrequencyResponse(a, xf[i]), bound)
                    << "instruction set " << static_cast<int>(set) << ", " << count
                    << " cosines, x = " << xf[i];
            }
        }
    }
}

} // namespace
} // namespace trelvanix
