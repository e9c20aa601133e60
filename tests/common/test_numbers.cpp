#include "common/numbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace trelvanix
{
namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(ToInt, TruncatesTowardsZero)
{
    EXPECT_EQ(ToInt(2.9), 2);
    EXPECT_EQ(ToInt(-2.9), -2);
    EXPECT_EQ(ToInt(2147483647.9), std::numeric_limits<int>::max());
    EXPECT_EQ(ToInt(-2147483648.9), std::numeric_limits<int>::min());
}

TEST(ToInt, GivesTheMostNegativeIntForWhatDoesNotFit)
{
    for (const double value : {2147483648.0, -2147483649.0, 1e300, -1e300, infinity, -infinity, nan})
        EXPECT_EQ(ToInt(value), std::numeric_limits<int>::min()) << value;
}

} // namespace
} // namespace trelvanix
