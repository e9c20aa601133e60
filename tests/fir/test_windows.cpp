#include "fir/windows.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/bits.h"
#include "support/plain_windows.h"

// The formulas of all windows are tested with the types of window that the designs offer.
namespace trelvanix
{
namespace
{

using testing::HasSameBits;

TEST(ParzenWindow, OfFourSamples)
{
    // Offsets 0.5 and 1.5 of a half width of 2: 1 - 6/16 + 6/64 and 2/64.
    std::vector<double> w(4);
    ParzenWindow(4, w.data());
    EXPECT_EQ(w, (std::vector<double>{0.03125, 0.71875, 0.71875, 0.03125}));
}

TEST(ParzenWindow, HasTheBitsOfThePlainFormForOddLengths)
{
    for (int N = 1; N <= 99; N += 2) {
        std::vector<double> w(static_cast<std::size_t>(N));
        ParzenWindow(N, w.data());
        EXPECT_TRUE(HasSameBits(testing::PlainParzenWindow(N), w.data())) << N;
    }
}

TEST(ParzenSample, FallsFromOneToZeroOverHalfTheLength)
{
    EXPECT_EQ(ParzenSample(0.0, 16), 1.0);
    EXPECT_EQ(ParzenSample(2.0, 16), 1.0 - 6.0 / 16.0 + 6.0 / 64.0);
    EXPECT_EQ(ParzenSample(4.0, 16), 0.25);
    EXPECT_EQ(ParzenSample(8.0, 16), 0.0);
}

} // namespace
} // namespace trelvanix
