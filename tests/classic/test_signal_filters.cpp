#include "classic/signal_filters.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <new>
#include <vector>

#include "support/bits.h"
#include "support/plain_kernels.h"
#include "support/samples.h"
#include "trelvanix.h"

namespace trelvanix
{
namespace
{

using testing::HasSameBits;
using testing::PlainFirFilter;
using testing::PlainIirFilter;
using testing::Samples;

std::vector<double> Filtered(const std::vector<double>& signal, const std::vector<double>& b,
                             const std::vector<double>& a)
{
    const ResultArray output = IirFilterToSignal(
        signal.data(), b.data(), a.data(), static_cast<int>(signal.size()), static_cast<int>(b.size()));
    return {output.get(), output.get() + signal.size()};
}

TEST(IirFilterToSignal, KeepsIgnoringTheFirstDenominatorCoefficient)
{
    EXPECT_EQ(Filtered({1, 0, 0}, {1, 0}, {7, -0.5}), (std::vector<double>{1, 0.5, 0.25}));
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(Filtered({1, 0, 0}, {1, 0}, {nan, -0.5}), (std::vector<double>{1, 0.5, 0.25}));
}

TEST(IirFilterToSignal, AveragesTwoPointsFromRest)
{
    EXPECT_EQ(Filtered({2, 4, 8}, {0.5, 0.5}, {1, 0}), (std::vector<double>{1, 3, 6}));
}

TEST(IirFilterToSignal, CountsFibonacciNumbers)
{
    EXPECT_EQ(Filtered({1, 0, 0, 0, 0, 0, 0}, {1, 0, 0}, {1, -1, -1}),
              (std::vector<double>{1, 1, 2, 3, 5, 8, 13}));
}

TEST(IirFilterToSignal, GivesAnEmptyArrayForNoSignal)
{
    const double one[] = {1.0};
    EXPECT_NE(IirFilterToSignal(nullptr, one, one, 0, 1), nullptr);
}

TEST(IirFilterToSignal, GivesZerosForNoCoefficients)
{
    EXPECT_TRUE(HasSameBits({0.0, 0.0}, Filtered({-1, 2}, {}, {}).data()));
}

TEST(IirFilterToSignal, RefusesNegativeCounts)
{
    const double one[] = {1.0};
    EXPECT_THROW(IirFilterToSignal(one, one, one, -1, 1), std::bad_array_new_length);
    EXPECT_THROW(IirFilterToSignal(one, one, one, 1, -1), std::bad_array_new_length);
    EXPECT_THROW(IirFilterToSignal(one, one, one, 0, -1), std::bad_array_new_length);
}

TEST(IirFilterToSignal, KeepsTheProductsWithTheEmptyHistories)
{
    const double inf = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(std::isnan(Filtered({1, 0}, {1, inf}, {1, 0})[0]));
    EXPECT_TRUE(std::isnan(Filtered({1, 0}, {1, 0}, {1, inf})[0]));
}

TEST(IirFilterToSignal, HasTheBitsOfThePlainForm)
{
    Samples samples(30);
    for (std::size_t count = 0; count <= 20; ++count) {
        for (const std::size_t length : {0U, 1U, 2U, 3U, 7U, 19U, 20U, 21U, 100U}) {
            const std::vector<double> signal = samples.Hostile(length);
            for (const auto& b : {samples.Plain(count), samples.Hostile(count)}) {
                const std::vector<double> a = samples.Hostile(count);
                ASSERT_TRUE(HasSameBits(PlainIirFilter(signal, b, a), Filtered(signal, b, a).data()))
                    << count << " coefficients, " << length << " samples";
            }
        }
    }
    // Finite all the way: poles well inside the unit circle.
    const std::vector<double> signal = samples.Plain(3000);
    for (std::size_t count = 1; count <= 20; ++count) {
        const std::vector<double> b = samples.Plain(count);
        std::vector<double> a = samples.Plain(count);
        for (double& value : a)
            value *= 0.9 / static_cast<double>(count);
        ASSERT_TRUE(HasSameBits(PlainIirFilter(signal, b, a), Filtered(signal, b, a).data()))
            << count << " coefficients";
    }
}

std::vector<double> FirFiltered(const std::vector<double>& signal, const std::vector<double>& h)
{
    const ResultArray output = FirFilterToSignal(
        signal.data(), h.data(), static_cast<int>(signal.size()), static_cast<int>(h.size()));
    return {output.get(), output.get() + signal.size()};
}

TEST(FirFilterToSignal, KeepsTheLastTapOnTheNewestSample)
{
    EXPECT_EQ(FirFiltered({1, 2, 3, 4}, {0, 0, 1}), (std::vector<double>{1, 2, 3, 4}));
    EXPECT_EQ(FirFiltered({1, 2, 3, 4}, {1, 0, 0}), (std::vector<double>{0, 0, 1, 2}));
}

TEST(FirFilterToSignal, ScalesWithOneTap)
{
    EXPECT_EQ(FirFiltered({1, -2, 0.5}, {3}), (std::vector<double>{3, -6, 1.5}));
}

TEST(FirFilterToSignal, GivesAnEmptyArrayForNoSignal)
{
    const double h[] = {1.0, 2.0};
    EXPECT_NE(FirFilterToSignal(nullptr, h, 0, 2), nullptr);
    EXPECT_NE(FirFilterToSignal(nullptr, nullptr, 0, 0), nullptr);
}

TEST(FirFilterToSignal, GivesZerosForNoTaps)
{
    EXPECT_TRUE(HasSameBits({0.0, 0.0}, FirFiltered({-1, 2}, {}).data()));
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
    const std::vector<double> output = FirFiltered({1, 2, 3}, {inf, 0, 1});
    EXPECT_TRUE(std::isnan(output[0]));
    EXPECT_TRUE(std::isnan(output[1]));
    EXPECT_EQ(output[2], inf);
}

TEST(FirFilterToSignal, NeverAnswersNegativeZero)
{
    // The sum starts from +0, which a product of -0 does not change.
    EXPECT_TRUE(HasSameBits({0.0, 0.0}, FirFiltered({-0.0, 0.0}, {1, 1}).data()));
}

TEST(FirFilterToSignal, TakesASignalShorterThanTheTaps)
{
    EXPECT_EQ(FirFiltered({1, 2}, {16, 8, 4, 2, 1}), (std::vector<double>{1, 4}));
}

TEST(FirFilterToSignal, HasTheBitsOfThePlainForm)
{
    Samples samples(20);
    for (std::size_t taps = 0; taps <= 40; ++taps) {
        for (const std::size_t length : {0U, 1U, 2U, 3U, 7U, 20U, 39U, 40U, 41U, 100U}) {
            const std::vector<double> signal = samples.Hostile(length);
            for (const auto& h : {samples.Plain(taps), samples.Hostile(taps)}) {
                ASSERT_TRUE(HasSameBits(PlainFirFilter(signal, h), FirFiltered(signal, h).data()))
                    << taps << " taps, " << length << " samples";
            }
        }
    }
    const std::vector<double> signal = samples.Plain(3000);
    const std::vector<double> h = samples.Plain(1000);
    EXPECT_TRUE(HasSameBits(PlainFirFilter(signal, h), FirFiltered(signal, h).data()));
}

TEST(Filter, IsTheFirFilterWithoutADenominatorAndTheIirFilterWithOne)
{
    Samples samples(31);
    const std::vector<double> signal = samples.Plain(200);
    const std::vector<double> b = samples.Plain(9);
    const std::vector<double> a = samples.Plain(9);
    const ResultArray fir = FirFilterToSignal(signal.data(), b.data(), 200, 9);
    const ResultArray withoutDenominator(::Filter(signal.data(), b.data(), nullptr, 200, 9));
    const std::vector<double> expectedFir(fir.get(), fir.get() + 200);
    EXPECT_TRUE(HasSameBits(expectedFir, withoutDenominator.get()));

    const std::vector<double> expectedIir = Filtered(signal, b, a);
    const ResultArray withDenominator(::Filter(signal.data(), b.data(), a.data(), 200, 9));
    EXPECT_TRUE(HasSameBits(expectedIir, withDenominator.get()));
}

} // namespace
} // namespace trelvanix
