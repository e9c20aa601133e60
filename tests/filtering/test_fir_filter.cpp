#include "filtering/fir_filter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <new>
#include <vector>

#include "support/bits.h"
#include "support/plain_kernels.h"
#include "support/samples.h"

namespace trelvanix
{
namespace
{

using testing::HasSameBits;
using testing::PlainFirFilter;
using testing::Samples;

std::vector<double> Filtered(const std::vector<double>& signal, const std::vector<double>& h)
{
    const ResultArray output = FirFilterToSignal(
        signal.data(), h.data(), static_cast<int>(signal.size()), static_cast<int>(h.size()));
    return {output.get(), output.get() + signal.size()};
}

TEST(FirFilterToSignal, KeepsTheLastTapOnTheNewestSample)
{
    EXPECT_EQ(Filtered({1, 2, 3, 4}, {0, 0, 1}), (std::vector<double>{1, 2, 3, 4}));
    EXPECT_EQ(Filtered({1, 2, 3, 4}, {1, 0, 0}), (std::vector<double>{0, 0, 1, 2}));
}

TEST(FirFilterToSignal, ScalesWithOneTap)
{
    EXPECT_EQ(Filtered({1, -2, 0.5}, {3}), (std::vector<double>{3, -6, 1.5}));
}

TEST(FirFilterToSignal, GivesAnEmptyArrayForNoSignal)
{
    const double h[] = {1.0, 2.0};
    EXPECT_NE(FirFilterToSignal(nullptr, h, 0, 2), nullptr);
    EXPECT_NE(FirFilterToSignal(nullptr, nullptr, 0, 0), nullptr);
}

TEST(FirFilterToSignal, GivesZerosForNoTaps)
{
    EXPECT_TRUE(HasSameBits({0.0, 0.0}, Filtered({-1, 2}, {}).data()));
}

TEST(FirFilterToSignal, RefusesNegativeCounts)
{
    const double one[] = {1.0};
    EXPECT_THROW(FirFilterToSignal(one, one, -1, 1), std::bad_array_new_length);
    EXPECT_THROW(FirFilterToSignal(one, one, 1, -1), std::bad_array_new_length);
    EXPECT_THROW(FirFilterToSignal(one, one, 0, -1), std::bad_array_new_length);
}

TEST(FirFilterToSignal, KeepsTheProductsWithTheEmptyDelayLine)
{
    const double inf = std::numeric_limits<double>::infinity();
    const std::vector<double> output = Filtered({1, 2, 3}, {inf, 0, 1});
    EXPECT_TRUE(std::isnan(output[0]));
    EXPECT_TRUE(std::isnan(output[1]));
    EXPECT_EQ(output[2], inf);
}

TEST(FirFilterToSignal, NeverAnswersNegativeZero)
{
    // The sum starts from +0, which a product of -0 does not change.
    EXPECT_TRUE(HasSameBits({0.0, 0.0}, Filtered({-0.0, 0.0}, {1, 1}).data()));
}

TEST(FirFilterToSignal, TakesASignalShorterThanTheTaps)
{
    EXPECT_EQ(Filtered({1, 2}, {16, 8, 4, 2, 1}), (std::vector<double>{1, 4}));
}

TEST(FirFilterToSignal, HasTheBitsOfThePlainForm)
{
    Samples samples(20);
    for (std::size_t taps = 0; taps <= 40; ++taps) {
        for (const std::size_t length : {0U, 1U, 2U, 3U, 7U, 20U, 39U, 40U, 41U, 100U}) {
            const std::vector<double> signal = samples.Hostile(length);
            for (const auto& h : {samples.Plain(taps), samples.Hostile(taps)}) {
                ASSERT_TRUE(HasSameBits(PlainFirFilter(signal, h), Filtered(signal, h).data()))
                    << taps << " taps, " << length << " samples";
            }
        }
    }
    const std::vector<double> signal = samples.Plain(3000);
    const std::vector<double> h = samples.Plain(1000);
    EXPECT_TRUE(HasSameBits(PlainFirFilter(signal, h), Filtered(signal, h).data()));
}

} // namespace
} // namespace trelvanix
