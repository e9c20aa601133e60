// What the four designs have in common, called as a host calls them.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <new>
#include <ostream>
#include <string_view>
#include <vector>

#include "support/bits.h"
#include "trelvanix.h"

namespace
{

using trelvanix::testing::HasSameBits;

constexpr double epsilon = std::numeric_limits<double>::epsilon();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double untouched = 12345.0;

using Row = std::vector<double>;

struct Family {
    const char* name;
    void (*design)(int order, double* wn, unsigned filterType, double* a, double* b);
};

void PrintTo(const Family& family, std::ostream* stream)
{
    *stream << family.name;
}

class IirDesigns : public testing::TestWithParam<Family>
{
protected:
    struct Filter {
        Row a;
        Row b;
        Row wn;
    };

    static Filter Design(int order, Row wn, unsigned type)
    {
        const auto count = static_cast<std::size_t>(order) * (type == 2 || type == 3 ? 2 : 1) + 1;
        Filter filter = {Row(count, untouched), Row(count, untouched), std::move(wn)};
        GetParam().design(order, filter.wn.data(), type, filter.a.data(), filter.b.data());
        return filter;
    }
};

constexpr Family families[] = {
    {"Butterworth", [](int order, double* wn, unsigned type, double* a,
                       double* b) { Butterworth(order, wn, type, 0, a, b); }},
    {"Chebyshv1", [](int order, double* wn, unsigned type, double* a,
                     double* b) { Chebyshv1(order, 1.0, wn, type, 0, a, b); }},
    {"Chebyshv2", [](int order, double* wn, unsigned type, double* a,
                     double* b) { Chebyshv2(order, 40.0, wn, type, 0, a, b); }},
    {"Elliptic", [](int order, double* wn, unsigned type, double* a,
                    double* b) { Elliptic(order, 1.0, 40.0, wn, type, 0, a, b); }},
    {"Bessel", [](int order, double* wn, unsigned type, double* a,
                  double* b) { Bessel(order, wn, static_cast<int>(type), a, b); }},
};

INSTANTIATE_TEST_SUITE_P(All, IirDesigns, testing::ValuesIn(families),
                         [](const auto& tested) { return tested.param.name; });

TEST_P(IirDesigns, WriteEveryCoefficientAndNoMore)
{
    // The arrays are exactly as long as the contract says: the address sanitizer would tell.
    for (const int order : {0, 1, 2, 3, 6, 9}) {
        for (const unsigned type : {0U, 1U, 2U, 3U, 4U, 0xFFFFFFFFU}) {
            const Filter f = Design(order, {0.2, 0.45}, type);
            EXPECT_EQ(f.a[0], 1.0);
            EXPECT_EQ(std::count(f.a.begin(), f.a.end(), untouched), 0);
            EXPECT_EQ(std::count(f.b.begin(), f.b.end(), untouched), 0);
        }
    }
}

TEST_P(IirDesigns, ReadOneEdgeUnlessTheTypeHasABand)
{
    for (const unsigned type : {0U, 1U, 4U, 0xFFFFFFFFU}) {
        const Filter one = Design(3, {0.3}, type);
        const Filter two = Design(3, {0.3, nan}, type);
        EXPECT_TRUE(HasSameBits(one.a, two.a.data()));
        EXPECT_TRUE(HasSameBits(one.b, two.b.data()));
        EXPECT_TRUE(HasSameBits({0.3, nan}, two.wn.data()));
    }
}

TEST_P(IirDesigns, OverwriteTheEdgesOfABand)
{
    for (const unsigned type : {2U, 3U}) {
        const Filter f = Design(3, {0.2, 0.45}, type);
        const double pi = 3.141592653589793;
        const double centre =
            std::string_view(GetParam().name) == "Bessel"
                ? std::sqrt(0.2 * 0.45)
                : 4.0 * std::sqrt(std::tan(0.2 * pi / 2.0) * std::tan(0.45 * pi / 2.0));
        EXPECT_NEAR(f.wn[0], centre, 8 * epsilon);
        EXPECT_TRUE(HasSameBits({0.0}, &f.wn[1]));
    }
}

TEST_P(IirDesigns, AcceptNullForEitherArray)
{
    for (unsigned type = 0; type < 4; ++type) {
        const Filter f = Design(4, {0.2, 0.45}, type);
        Row a(9);
        Row b(9);
        Row wn = {0.2, 0.45};
        GetParam().design(4, wn.data(), type, a.data(), nullptr);
        EXPECT_TRUE(HasSameBits(f.a, a.data()));
        wn = {0.2, 0.45};
        GetParam().design(4, wn.data(), type, nullptr, b.data());
        EXPECT_TRUE(HasSameBits(f.b, b.data()));
        wn = {0.2, 0.45};
        GetParam().design(4, wn.data(), type, nullptr, nullptr);
        EXPECT_TRUE(HasSameBits(f.wn, wn.data()));
    }
}

TEST_P(IirDesigns, AreAGainForOrderZero)
{
    for (unsigned type = 0; type < 4; ++type) {
        const Filter f = Design(0, {0.2, 0.45}, type);
        EXPECT_EQ(f.a, Row{1.0});
        // Order 0 is even: designs that ripple in the pass band have their ripple there.
        const std::string_view name = GetParam().name;
        const bool ripples = name == "Chebyshv1" || name == "Elliptic";
        EXPECT_NEAR(f.b[0], ripples ? std::pow(10.0, -1.0 / 20.0) : 1.0, epsilon);
    }
}

TEST_P(IirDesigns, RefuseImpossibleOrdersBeforeTheyWrite)
{
    double a[] = {untouched};
    double b[] = {untouched};
    double wn[] = {0.2, 0.45};
    const auto refuse = [&](int order, unsigned type) {
        EXPECT_THROW(GetParam().design(order, wn, type, a, b), std::bad_array_new_length)
            << order << " " << type;
    };
    for (unsigned type = 0; type < 5; ++type) {
        refuse(-1, type);
        refuse(std::numeric_limits<int>::min(), type);
        refuse(46341, type);
        refuse(std::numeric_limits<int>::max(), type);
    }
    // The band types double the order.
    refuse(23171, 2);
    refuse(23171, 3);
    EXPECT_EQ(a[0], untouched);
    EXPECT_EQ(b[0], untouched);
    EXPECT_EQ(wn[0], 0.2);
    EXPECT_EQ(wn[1], 0.45);
}

TEST_P(IirDesigns, GiveNotANumberForEdgesThatAreNone)
{
    for (unsigned type = 0; type < 4; ++type) {
        const Filter f = Design(3, {nan, nan}, type);
        EXPECT_EQ(f.a[0], 1.0);
        for (std::size_t i = 1; i < f.a.size(); ++i)
            EXPECT_TRUE(std::isnan(f.a[i])) << type << " " << i;
        // The gain of an analog highpass or bandstop doesn't depend on its edges.
        if (std::string_view(GetParam().name) != "Bessel" || type % 2 == 0) {
            EXPECT_TRUE(std::isnan(f.b.back())) << type;
        }
    }
}

TEST_P(IirDesigns, EndForEveryEdge)
{
    const double inf = std::numeric_limits<double>::infinity();
    const double values[] = {nan, inf, -inf, 0.0, -0.0, 1.0, -1.0, 2.0, -0.3, 1e-300, 1e300, 0.5};
    for (const double low : values)
        for (const double high : values)
            for (unsigned type = 0; type < 5; ++type)
                EXPECT_EQ(Design(4, {low, high}, type).a[0], 1.0);
}

} // namespace
