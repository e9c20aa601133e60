#include "linalg/companion_roots.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace trelvanix
{
namespace
{

constexpr double epsilon = std::numeric_limits<double>::epsilon();

TEST(CompanionRoots, UsesEveryCoefficient)
{
    const double c[] = {1.0, -3.0, 2.0};
    EXPECT_EQ(CompanionRoots(c, 2), (std::vector<Complex>{1.0, 2.0}));
    const double scaled[] = {-2.0, 6.0, -4.0};
    EXPECT_EQ(CompanionRoots(scaled, 2), (std::vector<Complex>{1.0, 2.0}));
}

TEST(CompanionRoots, HasNoneForDegreeZero)
{
    const double c[] = {5.0};
    EXPECT_TRUE(CompanionRoots(c, 0).empty());
}

TEST(CompanionRoots, GoesOnBeyondTenSweeps)
{
    // x^8 + 1 gets stuck; its roots lie at odd multiples of pi / 8.
    const double c[] = {1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 1.0};
    for (const Complex z : CompanionRoots(c, 8)) {
        EXPECT_NEAR(std::abs(z), 1.0, 16 * epsilon);
        EXPECT_NEAR(std::cos(8.0 * std::arg(z)), -1.0, 16 * epsilon);
    }
}

} // namespace
} // namespace trelvanix
