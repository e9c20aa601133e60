#include "classic/frequency_transformations.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#ifdef __linux__
#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <new>
#endif

#include "support/frequency_response.h"

namespace trelvanix
{
namespace
{

using testing::ModelAt;

constexpr double epsilon = std::numeric_limits<double>::epsilon();

using Row = std::vector<double>;

// 3 + 8 / (s + 2), whose numbers stay exact.
StateSpace FirstOrder()
{
    return {1, {-2.0}, {4.0}, {2.0}, 3.0};
}

// Two pairs of poles and one of zeros; nothing in it is zero by accident.
StateSpace FourthOrder()
{
    AnalogPrototype prototype = {
        {{0.1, 1.5}, {0.1, -1.5}}, {{-0.4, 0.9}, {-0.4, -0.9}, {-0.8, 0.3}, {-0.8, -0.3}}, 0.7};
    return ZpToStateSpace(prototype);
}

// Relative to values of about one: a few hundred roundings.
constexpr double tolerance = 1000 * epsilon;

TEST(LpToLp, ScalesStatesAndInput)
{
    StateSpace model = FirstOrder();
    LpToLp(model, 5.0);
    EXPECT_EQ(model.A, Row{-10.0});
    EXPECT_EQ(model.B, Row{20.0});
    EXPECT_EQ(model.C, Row{2.0});
    EXPECT_EQ(model.D, 3.0);
}

TEST(LpToHp, InvertsTheStates)
{
    StateSpace model = FirstOrder();
    LpToHp(model, 5.0);
    EXPECT_EQ(model.A, Row{-2.5}); // 5 * (-1/2)
    EXPECT_EQ(model.B, Row{10.0}); // -5 * (-1/2 * 4)
    EXPECT_EQ(model.C, Row{-1.0}); // 2 * (-1/2)
    EXPECT_EQ(model.D, 7.0);       // 3 - (-1) * 4
}

TEST(LpToBp, DoublesTheStatesAndKeepsTheFeedthrough)
{
    StateSpace model = FirstOrder();
    LpToBp(model, 4.0, 2.0); // Q = 2
    EXPECT_EQ(model.order, 2);
    EXPECT_EQ(model.A, (Row{-4.0, 4.0, -4.0, 0.0}));
    EXPECT_EQ(model.B, (Row{8.0, 0.0}));
    EXPECT_EQ(model.C, (Row{2.0, 0.0}));
    EXPECT_EQ(model.D, 3.0);
}

TEST(LpToBs, DoublesTheStates)
{
    StateSpace model = FirstOrder();
    LpToBs(model, 4.0, 2.0);
    EXPECT_EQ(model.order, 2);
    EXPECT_EQ(model.A, (Row{-1.0, 4.0, -4.0, 0.0})); // 4 * (-1/2) / 2
    EXPECT_EQ(model.B, (Row{4.0, 0.0}));             // (-1/2 * 4) * -1 * 4 / 2
    EXPECT_EQ(model.C, (Row{-1.0, 0.0}));
    EXPECT_EQ(model.D, 7.0);
}

TEST(LpToBp, DividesBeforeItMultiplies)
{
    // Bw * A would be exact: 3.
    const double A = 3.0;
    const double Wo = 0.1;
    const double Bw = 1.0;
    StateSpace model = {1, {A}, {A}, {1.0}, 0.0};
    LpToBp(model, Wo, Bw);
    volatile const double Q = Wo / Bw;
    volatile const double quotient = A / Q;
    volatile const double product = Wo * A;
    EXPECT_EQ(model.A[0], quotient * Wo);
    EXPECT_EQ(model.B[0], product / Q);
}

TEST(LpToBs, HasTheGridOfZerosOfItsUnitBlocks)
{
    StateSpace model = FourthOrder();
    LpToBs(model, 1.5, 0.5);
    for (std::size_t i = 0; i < 4; ++i) {
        for (std::size_t j = 0; j < 4; ++j) {
            EXPECT_EQ(model.A[i * 8 + 4 + j], i == j ? 1.5 : 0.0);
            EXPECT_EQ(model.A[(4 + i) * 8 + j], i == j ? -1.5 : 0.0);
            EXPECT_EQ(model.A[(4 + i) * 8 + 4 + j], 0.0);
        }
        EXPECT_EQ(model.B[4 + i], 0.0);
        EXPECT_EQ(model.C[4 + i], 0.0);
    }
}

TEST(TransformLowPass, SubstitutesTheFrequency)
{
    const StateSpace lowpass = FourthOrder();
    const double Wo = 1.7;
    const double Bw = 0.6;
    const Complex s(0.2, 1.1);
    const auto check = [&](FilterType type, Complex substituted) {
        StateSpace model = lowpass;
        TransformLowPass(model, type, {Wo, Bw});
        EXPECT_LT(std::abs(ModelAt(model, s) - ModelAt(lowpass, substituted)), tolerance)
            << static_cast<unsigned>(type);
    };
    check(FilterType::LowPass, s / Wo);
    check(FilterType::HighPass, Wo / s);
    check(FilterType::BandPass, (s * s + Wo * Wo) / (Bw * s));
    check(FilterType::BandStop, Bw * s / (s * s + Wo * Wo));
    check(static_cast<FilterType>(4), s / Wo);
    check(static_cast<FilterType>(0xFFFFFFFF), s / Wo);
}

TEST(TransformLowPass, AcceptsAModelWithoutStates)
{
    for (const FilterType type :
         {FilterType::LowPass, FilterType::HighPass, FilterType::BandPass, FilterType::BandStop}) {
        StateSpace model = {0, {}, {}, {}, 2.0};
        TransformLowPass(model, type, {1.0, 1.0});
        EXPECT_EQ(model.order, 0);
        EXPECT_EQ(model.D, 2.0);
    }
}

TEST(LpToHp, GivesNonFiniteEntriesForAPoleAtTheOrigin)
{
    StateSpace model = {1, {0.0}, {1.0}, {1.0}, 0.0};
    LpToHp(model, 1.0);
    EXPECT_FALSE(std::isfinite(model.A[0]));
}

#if defined(__linux__) && !defined(TRELVANIX_SANITIZED)

// Lets this process map no more than a quarter of a megabyte beyond what it has.
void LimitMemory()
{
    std::FILE* const file = std::fopen("/proc/self/statm", "r");
    unsigned long pages = 0;
    if (file == nullptr || std::fscanf(file, "%lu", &pages) != 1)
        std::_Exit(99);
    std::fclose(file);
    const rlim_t bytes = pages * static_cast<unsigned long>(sysconf(_SC_PAGESIZE)) + 262144;
    const rlimit limit = {bytes, bytes};
    if (setrlimit(RLIMIT_AS, &limit) != 0)
        std::_Exit(99);
}

// The bandpass needs 5 MB.
StateSpace LargeModel()
{
    constexpr std::size_t n = 400;
    StateSpace model = {n, Row(n * n), Row(n, 1.0), Row(n, 1.0), 0.0};
    for (std::size_t i = 0; i < n; ++i)
        model.A[i * n + i] = -1.0;
    return model;
}

TEST(LpToBpDeathTest, KeepsEndingTheProcessWhenTheModelCannotGrow)
{
    StateSpace model = LargeModel();
    EXPECT_EXIT(
        {
            LimitMemory();
            LpToBp(model, 1.0, 1.0);
        },
        ::testing::ExitedWithCode(1), "^Memory allocation failed for 'a' or 'b' or 'c'\\.\n$");
}

TEST(LpToBsDeathTest, KeepsThrowingWhenTheModelCannotGrow)
{
    StateSpace model = LargeModel();
    EXPECT_EXIT(
        {
            LimitMemory();
            try {
                LpToBs(model, 1.0, 1.0);
            } catch (const std::bad_alloc&) {
                std::_Exit(42);
            }
        },
        ::testing::ExitedWithCode(42), "^$");
}

#endif

} // namespace
} // namespace trelvanix
