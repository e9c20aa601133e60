#include "common/growable_array.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>

namespace trelvanix
{
namespace
{

template <class Element>
std::string LengthErrorMessage(std::int64_t count)
{
    try {
        NewGrowableArray<Element>(count);
    } catch (const std::length_error& error) {
        return error.what();
    }
    return "no exception";
}

TEST(NewGrowableArray, IsFilledWithZeros)
{
    EXPECT_EQ(NewGrowableArray<double>(3), (std::vector<double>{0.0, 0.0, 0.0}));
    EXPECT_TRUE(NewGrowableArray<double>(0).empty());
}

TEST(NewGrowableArray, NamesANegativeOrImpossibleCountVectorTooLong)
{
    EXPECT_EQ(LengthErrorMessage<double>(-1), "vector too long");
    EXPECT_EQ(LengthErrorMessage<double>(std::numeric_limits<std::int64_t>::min()), "vector too long");
    EXPECT_EQ(LengthErrorMessage<double>(std::numeric_limits<std::int64_t>::max()), "vector too long");
}

} // namespace
} // namespace trelvanix
