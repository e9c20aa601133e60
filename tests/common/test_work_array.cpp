#include "common/work_array.h"

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
        NewWorkArray<Element>(count);
    } catch (const std::length_error& error) {
        return error.what();
    }
    return "no exception";
}

TEST(NewWorkArray, IsFilledWithZeros)
{
    EXPECT_EQ(NewWorkArray<double>(3), (std::vector<double>{0.0, 0.0, 0.0}));
    EXPECT_TRUE(NewWorkArray<double>(0).empty());
}

TEST(NewWorkArray, NamesANegativeOrImpossibleCountVectorTooLong)
{
    EXPECT_EQ(LengthErrorMessage<double>(-1), "vector too long");
    EXPECT_EQ(LengthErrorMessage<double>(std::numeric_limits<std::int64_t>::min()), "vector too long");
    EXPECT_EQ(LengthErrorMessage<double>(std::numeric_limits<std::int64_t>::max()), "vector too long");
}

} // namespace
} // namespace trelvanix
