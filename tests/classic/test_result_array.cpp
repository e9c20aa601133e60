#include "classic/result_array.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdlib>
#include <new>
#include <utility>

#include "trelvanix.h"

#if defined(__linux__)
#include <sys/resource.h>
#endif
#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace trelvanix
{
namespace
{

TEST(NewResultArray, GivesAnArrayForNoElements)
{
    EXPECT_NE(NewResultArray(0), nullptr);
    EXPECT_NE(NewComplexResultArray(0), nullptr);
}

TEST(NewResultArray, HasRoomForEveryElement)
{
    const ResultArray array = NewResultArray(1000);
    for (int i = 0; i < 1000; ++i)
        array[static_cast<std::size_t>(i)] = i;
    EXPECT_EQ(array[0], 0.0);
    EXPECT_EQ(array[999], 999.0);
}

TEST(NewResultArray, RefusesANegativeCount)
{
    EXPECT_THROW(NewResultArray(-1), std::bad_array_new_length);
    EXPECT_THROW(NewResultArray(INT_MIN), std::bad_array_new_length);
    EXPECT_THROW(NewComplexResultArray(-1), std::bad_array_new_length);
    EXPECT_THROW(NewComplexResultArray(INT_MIN), std::bad_array_new_length);
}

#if defined(__GLIBC__)
TEST(NewResultArray, TakesTheMemoryOfItsElements)
{
    // 250 and 500 cache lines; the heap adds less than one.
    EXPECT_LT(malloc_usable_size(NewResultArray(2000).get()), 16064U);
    EXPECT_LT(malloc_usable_size(NewComplexResultArray(2000).get()), 32064U);
}
#endif

TEST(ResultArray, IsReleasedByTheExportedFunctions)
{
    EXPECT_EQ(ReleaseDoubleArray(NewResultArray(3).release()), 1);
    EXPECT_EQ(ReleaseDoubleArray(NewComplexResultArray(3).release()), 1);
    EXPECT_EQ(ReleaseComplexDoubleArray(NewResultArray(0).release()), 1);
    EXPECT_EQ(ReleaseComplexDoubleArray(NewComplexResultArray(0).release()), 1);
}

// The sanitizers reserve terabytes of addresses, which leaves no room for a limit.
#if defined(__linux__) && !defined(TRELVANIX_SANITIZED)
TEST(NewResultArrayDeathTest, ThrowsBadAllocWhenTheHeapIsExhausted)
{
    const auto allocateBeyondTheLimit = [] {
        const rlimit limit = {1U << 30, 1U << 30};
        setrlimit(RLIMIT_AS, &limit);
        int failures = 0;
        try {
            ReleaseDoubleArray(NewResultArray(INT_MAX).release());
        } catch (const std::bad_array_new_length&) {
        } catch (const std::bad_alloc&) {
            ++failures;
        }
        try {
            ReleaseDoubleArray(NewComplexResultArray(INT_MAX).release());
        } catch (const std::bad_array_new_length&) {
        } catch (const std::bad_alloc&) {
            ++failures;
        }
        std::_Exit(failures == 2 ? 42 : 1);
    };
    EXPECT_EXIT(allocateBeyondTheLimit(), ::testing::ExitedWithCode(42), "");
}
#endif

} // namespace
} // namespace trelvanix
