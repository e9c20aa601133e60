#include "classic/conjugate_pairs.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "support/samples.h"

namespace trelvanix
{
namespace
{

std::vector<Complex> Paired(std::vector<Complex> values)
{
    PairConjugates(values);
    return values;
}

using Values = std::vector<Complex>;

TEST(PairConjugates, SortsByRealPartAndPutsNegativeImaginaryPartsFirst)
{
    EXPECT_EQ(Paired({{-0.3, 0.9}, {-0.8, -0.2}, {-0.8, 0.2}, {-0.3, -0.9}}),
              (Values{{-0.8, -0.2}, {-0.8, 0.2}, {-0.3, -0.9}, {-0.3, 0.9}}));
}

TEST(PairConjugates, PutsTheLargerImaginaryPartFirstAmongEqualRealParts)
{
    EXPECT_EQ(Paired({{0.0, 1.0}, {0.0, 2.0}, {0.0, -1.0}, {0.0, -2.0}}),
              (Values{{0.0, -2.0}, {0.0, 2.0}, {0.0, -1.0}, {0.0, 1.0}}));
}

TEST(PairConjugates, TakesRealPartsWithinTheToleranceForEqual)
{
    // 2e-16 apart: the imaginary parts decide.
    EXPECT_EQ(Paired({{2e-16, 1.0}, {0.0, -2.0}}), (Values{{0.0, -2.0}, {2e-16, 1.0}}));
    EXPECT_EQ(Paired({{0.0, 1.0}, {2e-16, -2.0}}), (Values{{2e-16, -2.0}, {0.0, 1.0}}));
    EXPECT_EQ(Paired({{3e-16, -2.0}, {0.0, 1.0}}), (Values{{0.0, 1.0}, {3e-16, -2.0}}));
}

TEST(PairConjugates, MovesARealPoleBehindTheComplexOnes)
{
    EXPECT_EQ(Paired({{-1.0, 0.0}, {-0.5, 0.8}, {-0.5, -0.8}, {-0.2, 0.9}, {-0.2, -0.9}}),
              (Values{{-0.5, -0.8}, {-0.5, 0.8}, {-0.2, -0.9}, {-0.2, 0.9}, {-1.0, 0.0}}));
}

TEST(PairConjugates, TakesTinyImaginaryPartsForReal)
{
    EXPECT_EQ(Paired({{-1.0, 2.2e-16}, {-0.5, -0.8}, {-0.5, 0.8}}),
              (Values{{-0.5, -0.8}, {-0.5, 0.8}, {-1.0, 2.2e-16}}));
    EXPECT_EQ(Paired({{-1.0, 2.3e-16}, {-0.5, -0.8}, {-0.5, 0.8}}),
              (Values{{-1.0, 2.3e-16}, {-0.5, -0.8}, {-0.5, 0.8}}));
}

TEST(PairConjugates, KeepsItsUnevenTestsOfRealValues)
{
    // A later real value changes places when it exceeds the modulus of the earlier one ...
    EXPECT_EQ(Paired({-1.0, 3.0}), (Values{3.0, -1.0}));
    EXPECT_EQ(Paired({-3.0, 1.0}), (Values{-3.0, 1.0}));
    EXPECT_EQ(Paired({-3.0, -1.0}), (Values{-3.0, -1.0}));
    // ... and what changed places is not looked at again: 1 goes behind 2, then 1 behind 3.
    EXPECT_EQ(Paired({3.0, 1.0, 2.0}), (Values{2.0, 3.0, 1.0}));
    // Equal values change places only when they are not positive, which their imaginary parts show.
    EXPECT_EQ(Paired({{-1.0, 1e-17}, {-1.0, 2e-17}}), (Values{{-1.0, 2e-17}, {-1.0, 1e-17}}));
    EXPECT_EQ(Paired({{1.0, 1e-17}, {1.0, 2e-17}}), (Values{{1.0, 1e-17}, {1.0, 2e-17}}));
}

TEST(PairConjugates, LeavesEmptyAndSingleArrays)
{
    EXPECT_TRUE(Paired({}).empty());
    EXPECT_EQ(Paired({{-1.0, 0.0}}), (Values{{-1.0, 0.0}}));
}

TEST(PairConjugates, LosesNoValueAmongNotANumbersAndTies)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double parts[] = {nan, 0.0, 1.5e-16, 3e-16, -1.0, std::numeric_limits<double>::infinity()};
    testing::Samples samples(421);
    for (int round = 0; round < 200; ++round) {
        Values values(static_cast<std::size_t>(samples.NextBelow(40)));
        double tag = 0.0;
        double sum = 0.0;
        for (Complex& value : values) {
            // The tag tells the values apart and is far below the tolerance.
            tag += 1e-30;
            sum += tag;
            value = {parts[samples.NextBelow(6)], tag};
        }
        PairConjugates(values);
        double sumAfter = 0.0;
        for (const Complex value : values)
            sumAfter += value.imag();
        EXPECT_NEAR(sumAfter, sum, 1e-40);
    }
}

} // namespace
} // namespace trelvanix
