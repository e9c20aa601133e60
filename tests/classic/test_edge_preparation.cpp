#include "classic/edge_preparation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <new>

namespace trelvanix
{
namespace
{

constexpr double epsilon = std::numeric_limits<double>::epsilon();
constexpr auto other = static_cast<FilterType>(7);

TEST(PrepareEdges, PrewarpsOneEdgeAndReadsNoMore)
{
    // An array of one: the address sanitizer would tell.
    for (const FilterType type : {FilterType::LowPass, FilterType::HighPass}) {
        double wn[] = {0.5};
        EXPECT_NEAR(PrepareEdges(wn, type, Domain::digital).Wo, 4.0, 8 * epsilon); // 4 tan(pi / 4)
        EXPECT_EQ(wn[0], 0.5);
    }
}

TEST(PrepareEdges, OverwritesTheEdgesOfABand)
{
    // tan(pi / 6) tan(pi / 3) = 1: the centre is 4, the width 4 (sqrt(3) - 1 / sqrt(3)).
    for (const FilterType type : {FilterType::BandPass, FilterType::BandStop}) {
        double wn[] = {1.0 / 3.0, 2.0 / 3.0};
        const PreparedEdges edges = PrepareEdges(wn, type, Domain::digital);
        EXPECT_NEAR(edges.Wo, 4.0, 8 * epsilon);
        EXPECT_NEAR(edges.Bw, 8.0 / std::sqrt(3.0), 16 * epsilon);
        EXPECT_EQ(wn[0], edges.Wo);
        EXPECT_EQ(wn[1], 0.0);
    }
}

TEST(PrepareEdges, KeepsTheLowerAnalogEdgeAtZero)
{
    for (const FilterType type : {FilterType::LowPass, FilterType::HighPass})
        EXPECT_EQ(PrepareEdges(nullptr, type, Domain::analog).Wo, 0.0);
    for (const FilterType type : {FilterType::BandPass, FilterType::BandStop}) {
        double wn[] = {3.0, 5.0};
        const PreparedEdges edges = PrepareEdges(wn, type, Domain::analog);
        EXPECT_EQ(edges.Wo, 0.0);
        EXPECT_EQ(edges.Bw, 5.0);
        EXPECT_EQ(wn[0], 0.0);
        EXPECT_EQ(wn[1], 0.0);
    }
}

TEST(PrepareEdges, TakesTheRawEdgeForOtherTypes)
{
    for (const Domain domain : {Domain::digital, Domain::analog}) {
        double wn[] = {0.3};
        EXPECT_EQ(PrepareEdges(wn, other, domain).Wo, 0.3);
        EXPECT_EQ(wn[0], 0.3);
    }
}

TEST(PrepareEdges, GivesNotANumberForEdgesOfDifferentSign)
{
    double wn[] = {-0.3, 0.3};
    EXPECT_TRUE(std::isnan(PrepareEdges(wn, FilterType::BandPass, Domain::digital).Wo));
    EXPECT_TRUE(std::isnan(wn[0]));
    EXPECT_EQ(wn[1], 0.0);
}

TEST(PrepareAnalogEdges, TakesEveryEdgeAsItIs)
{
    for (const FilterType type : {FilterType::LowPass, FilterType::HighPass, other}) {
        double wn[] = {3.0};
        EXPECT_EQ(PrepareAnalogEdges(wn, type).Wo, 3.0);
        EXPECT_EQ(wn[0], 3.0);
    }
    double wn[] = {2.0, 8.0};
    const PreparedEdges edges = PrepareAnalogEdges(wn, FilterType::BandPass);
    EXPECT_EQ(edges.Wo, 4.0);
    EXPECT_EQ(edges.Bw, 6.0);
    EXPECT_EQ(wn[0], 4.0);
    EXPECT_EQ(wn[1], 0.0);
}

TEST(CheckOrder, RefusesWhatHasNoMatrix)
{
    EXPECT_NO_THROW(CheckOrder(0, FilterType::LowPass));
    EXPECT_NO_THROW(CheckOrder(46340, FilterType::HighPass));
    EXPECT_NO_THROW(CheckOrder(46340, other));
    EXPECT_NO_THROW(CheckOrder(23170, FilterType::BandStop));
    EXPECT_THROW(CheckOrder(-1, FilterType::LowPass), std::bad_array_new_length);
    EXPECT_THROW(CheckOrder(std::numeric_limits<int>::min(), FilterType::BandPass),
                 std::bad_array_new_length);
    EXPECT_THROW(CheckOrder(46341, FilterType::LowPass), std::bad_array_new_length);
    EXPECT_THROW(CheckOrder(23171, FilterType::BandPass), std::bad_array_new_length);
    EXPECT_THROW(CheckOrder(std::numeric_limits<int>::max(), other), std::bad_array_new_length);
}

} // namespace
} // namespace trelvanix
