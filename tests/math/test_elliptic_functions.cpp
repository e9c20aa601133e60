#include "math/elliptic_functions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <iomanip>
#include <limits>
#include <vector>

#include "math/elliptic_reference.inc"
#include "math/trigonometric.h"

namespace trelvanix
{
namespace
{

constexpr double pi = 3.141592653589793;
constexpr double epsilon = std::numeric_limits<double>::epsilon();
constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

// The functions know k' = sqrt(1 - k^2) with the rounding of 1 - k^2: a relative error of epsilon over
// k'^2, which moves K by as much. The same holds for K' and k.
double ErrorThroughComplement(double complementSquared)
{
    return 2.0 * epsilon / complementSquared;
}

double ComplementSquared(double k)
{
    return (1.0 - k) * (1.0 + k);
}

// How far off a value w of cd or sn at u may be: rounding of u K against the slope of the function,
// which (1 + |w|) (1 + k |w|) bounds, and the error of k'.
double Tolerance(const EllipticFunctionReference& row, Complex w)
{
    const double K = EllipticK(row.k > 0.0 ? row.k : 1e-9).K;
    const double slope = (1.0 + std::abs(w)) * (1.0 + row.k * std::abs(w));
    const double size = 1.0 + std::hypot(row.uRe, row.uIm);
    return slope * (16.0 * epsilon * K * size + ErrorThroughComplement(ComplementSquared(row.k)));
}

TEST(SymmetricRemainder, ReturnsTheBoundWithItsSign)
{
    EXPECT_EQ(SymmetricRemainder(3.0, 4.0), -1.0);
    EXPECT_EQ(SymmetricRemainder(-3.0, 4.0), 1.0);
    EXPECT_EQ(SymmetricRemainder(2.0, 4.0), 2.0);
    EXPECT_EQ(SymmetricRemainder(-2.0, 4.0), -2.0);
    EXPECT_EQ(SymmetricRemainder(9.0, 4.0), 1.0);
}

TEST(SymmetricRemainder, OfAnInfinityIsNotANumber)
{
    EXPECT_TRUE(std::isnan(SymmetricRemainder(inf, 4.0)));
    EXPECT_TRUE(std::isnan(SymmetricRemainder(1.0, nan)));
}

TEST(LandenModuli, AreNoneForAModulusOfZero)
{
    EXPECT_TRUE(LandenModuli(0.0).empty());
    EXPECT_TRUE(LandenModuli(landenTolerance).empty());
}

TEST(LandenModuli, DescendQuadratically)
{
    // One step takes k to (1 - k') / (1 + k').
    for (const double k : {1e-6, 0.1, 0.5, 0.9, 0.999, 1.0 - 1e-12}) {
        double previous = k;
        const std::vector<double> moduli = LandenModuli(k);
        ASSERT_FALSE(moduli.empty());
        EXPECT_LE(moduli.size(), 12U) << k;
        for (const double modulus : moduli) {
            const double kp = std::sqrt(ComplementSquared(previous));
            const double expected = previous * previous / ((1.0 + kp) * (1.0 + kp));
            EXPECT_NEAR(modulus, expected, expected * (8.0 * epsilon + epsilon / kp)) << k;
            EXPECT_LT(modulus, previous);
            previous = modulus;
        }
        EXPECT_LE(previous, landenTolerance);
    }
}

TEST(LandenModuli, EndForModuliThatDoNotDescend)
{
    EXPECT_EQ(LandenModuli(1.0), std::vector<double>{1.0});
    for (const double k : {1.0 + 1e-9, 2.0, inf}) {
        const std::vector<double> moduli = LandenModuli(k);
        ASSERT_EQ(moduli.size(), 1U) << k;
        EXPECT_TRUE(std::isnan(moduli[0])) << k;
    }
    EXPECT_TRUE(LandenModuli(nan).empty());
    EXPECT_TRUE(LandenModuli(-0.5).empty());
}

TEST(EllipticK, MatchesFiftyDigits)
{
    for (const auto& row : ellipticIntegralReference) {
        const auto [K, Kprime] = EllipticK(row.k);
        // Beyond the series' ends the error of the complement is part of the result; within them k' is
        // still a rounded difference, while K' takes k itself.
        const double throughK = row.k < 1e-6 ? 0.0 : ErrorThroughComplement(row.k * row.k);
        EXPECT_NEAR(K, row.K, 8.0 * epsilon * row.K + ErrorThroughComplement(ComplementSquared(row.k)))
            << std::setprecision(17) << "k = " << row.k;
        EXPECT_NEAR(Kprime, row.Kprime, 8.0 * epsilon * row.Kprime + throughK)
            << std::setprecision(17) << "k = " << row.k;
    }
}

TEST(EllipticK, IsAQuarterOfTheCircleAtZero)
{
    EXPECT_EQ(EllipticK(0.0).K, pi / 2.0);
    EXPECT_EQ(EllipticK(0.0).Kprime, inf);
}

TEST(EllipticK, GrowsWithoutBoundTowardsOne)
{
    EXPECT_NEAR(EllipticK(1.0).Kprime, pi / 2.0, 4.0 * epsilon);
    EXPECT_EQ(EllipticK(1.0).K, inf);
}

TEST(EllipticK, TakesTwoTermsOfTheSeriesBesideOne)
{
    // k^2 rounds to 1 - 2^-40, so that k' is 2^-20: K = ln(4 / k') + (ln(4 / k') - 1) k'^2 / 4.
    const double k = 1.0 - std::ldexp(1.0, -41);
    const double logarithm = 22.0 * std::log(2.0);
    const double expected = logarithm + (logarithm - 1.0) * std::ldexp(1.0, -42);
    EXPECT_NEAR(EllipticK(k).K, expected, 2.0 * epsilon * expected);
}

TEST(EllipticK, HasNoNumberForModuliOutsideItsRange)
{
    for (const double k : {1.5, inf})
        EXPECT_TRUE(std::isnan(EllipticK(k).K)) << k;
    EXPECT_TRUE(std::isnan(EllipticK(-0.5).Kprime));
}

TEST(EllipticKByAgm, HasItsLimitsAtZeroAndOne)
{
    EXPECT_EQ(EllipticKByAgm({0.0, 1.0, -0.0}), (std::vector<double>{pi / 2.0, inf, pi / 2.0}));
}

TEST(EllipticKByAgm, MatchesFiftyDigits)
{
    EXPECT_NEAR(EllipticKByAgm({0.5})[0], 1.854074677301372, 4.0 * epsilon);
    for (const auto& row : ellipticIntegralReference) {
        const double m = row.k * row.k;
        if (m == 0.0 || m == 1.0)
            continue;
        EXPECT_NEAR(EllipticKByAgm({m})[0], row.K,
                    8.0 * epsilon * row.K + ErrorThroughComplement(ComplementSquared(row.k)))
            << std::setprecision(17) << "k = " << row.k;
    }
}

TEST(EllipticKByAgm, EndsWithTheStepThatTheBoundAsksFor)
{
    // The weighted squares of the differences of step 6 and 7, in forty digits: 2.9e-16 and 4.3e-33 for the
    // first parameter, 2.2e-8 and 9.6e-17 for the second; a step more or less shows in the last bit.
    for (const double m : {0.9999982247991865, 0.9999999999997197}) {
        double a = 1.0;
        double b = std::sqrt(1.0 - m);
        for (int i = 1; i <= 7; ++i) {
            const double geometric = std::sqrt(a * b);
            a = (a + b) / 2.0;
            b = geometric;
        }
        EXPECT_EQ(EllipticKByAgm({m})[0], pi / (2.0 * a)) << std::setprecision(17) << m;
    }
}

TEST(EllipticKByAgm, EndsForEveryParameter)
{
    // K(m) = K(m / (m - 1)) / sqrt(1 - m) for m < 0, and K(m) sqrt(m / (m - 1)) grows as ln 4 sqrt(1 - m).
    for (const double m : {-1.0, -1e8, -1e100, -1e300}) {
        const double root = std::sqrt(1.0 - m);
        const double expected = m > -1e8 ? 1.3110287771461 : std::log(4.0 * root) / root;
        EXPECT_NEAR(EllipticKByAgm({m})[0] / expected, 1.0, 1e-7) << m;
    }
    EXPECT_TRUE(std::isnan(EllipticKByAgm({1.5})[0]));
    EXPECT_TRUE(std::isnan(EllipticKByAgm({inf})[0]));
    EXPECT_TRUE(std::isnan(EllipticKByAgm({nan})[0]));
    EXPECT_EQ(EllipticKByAgm({-inf})[0], 0.0);
    EXPECT_TRUE(EllipticKByAgm({}).empty());
}

TEST(JacobiCd, AndSnAreTheCircularFunctionsForModulusZero)
{
    const std::vector<double> u = {-1.5, 0.0, 0.25, 0.5, 0.75, 1.0, 3.0};
    const std::vector<double> cd = JacobiCd(u, 0.0);
    const std::vector<double> sn = JacobiSn(u, 0.0);
    for (std::size_t i = 0; i < u.size(); ++i) {
        EXPECT_EQ(cd[i], Cos(u[i] * pi * 0.5));
        EXPECT_EQ(sn[i], Sin(u[i] * pi * 0.5));
    }
}

TEST(JacobiCd, AndSnAreOneAtTheEndsOfTheQuarterPeriod)
{
    for (const double k : {0.0, 1e-9, 0.1, 0.5, 0.9, 0.999999, 1.0 - 1e-12}) {
        EXPECT_NEAR(JacobiCd({0.0}, k)[0], 1.0, 4.0 * epsilon) << k;
        EXPECT_NEAR(JacobiSn({1.0}, k)[0], 1.0, 4.0 * epsilon) << k;
    }
}

TEST(JacobiCd, AndSnMatchFiftyDigitsAtRealArguments)
{
    int rows = 0;
    for (const auto& row : ellipticFunctionReference) {
        if (row.uIm != 0.0)
            continue;
        EXPECT_NEAR(JacobiCd({row.uRe}, row.k)[0], row.cdRe, Tolerance(row, row.cdRe))
            << std::setprecision(17) << "k = " << row.k << ", u = " << row.uRe;
        EXPECT_NEAR(JacobiSn({row.uRe}, row.k)[0], row.snRe, Tolerance(row, row.snRe))
            << std::setprecision(17) << "k = " << row.k << ", u = " << row.uRe;
        ++rows;
    }
    EXPECT_GT(rows, 50);
}

TEST(JacobiCdComplex, AndSnMatchFiftyDigits)
{
    for (const auto& row : ellipticFunctionReference) {
        const Complex u(row.uRe, row.uIm), cd(row.cdRe, row.cdIm), sn(row.snRe, row.snIm);
        EXPECT_LE(std::abs(JacobiCdComplex({u}, row.k)[0] - cd), Tolerance(row, cd))
            << std::setprecision(17) << "k = " << row.k << ", u = " << u << ", cd = " << cd;
        EXPECT_LE(std::abs(JacobiSnComplex(u, row.k) - sn), Tolerance(row, sn))
            << std::setprecision(17) << "k = " << row.k << ", u = " << u << ", sn = " << sn;
    }
}

TEST(JacobiCd, IsSnReflectedAtTheQuarterPeriod)
{
    for (const double k : {0.1, 0.5, 0.9, 0.999}) {
        for (double u = -1.9; u < 2.0; u += 0.1) {
            EXPECT_NEAR(JacobiCd({u}, k)[0], JacobiSn({1.0 - u}, k)[0], 64.0 * epsilon)
                << k << " " << u;
        }
    }
}

TEST(InverseSnComplex, ReturnsTheArgumentInTheFundamentalRectangleAsDoesInverseCd)
{
    for (const double k : {0.1, 0.5, 0.9, 0.99}) {
        const auto [K, Kprime] = EllipticK(k);
        const double R = Kprime / K;
        for (double x = 0.05; x < 1.0; x += 0.15) {
            for (double y = -0.95; y < 1.0; y += 0.19) {
                const Complex u(x, y * R);
                // |w| is below about 200 here, and the slopes above 1/200.
                EXPECT_LE(std::abs(InverseSnComplex(JacobiSnComplex(u, k), k) - u), 1e-11)
                    << k << " " << u;
                const Complex cd = JacobiCdComplex({u}, k)[0];
                EXPECT_LE(std::abs(InverseCdComplex(cd, k) - u), 1e-11) << k << " " << u;
            }
        }
    }
}

TEST(InverseSnComplex, GivesNotANumberForModuliWithoutPeriods)
{
    for (const double k : {1.0, 1.5})
        EXPECT_TRUE(std::isnan(InverseSnComplex({0.5, 0.5}, k).imag())) << k;
}

TEST(EllipticDegree, MatchesFiftyDigits)
{
    for (const auto& row : ellipticDegreeReference) {
        if (row.k1 < 1e-6)
            continue;
        // The relative error of k1 that its complement brings moves K1'/K1 by 2 / pi of it; K'/K moves
        // by pi / (2 k k'^2 K^2) for a step of k, which itself is taken from its complement.
        const double K = row.k < 1.0 ? EllipticK(row.k).K : 0.0;
        const double throughK1 = ErrorThroughComplement(row.k1 * row.k1) * 4.0 / (pi * pi) * row.k *
                                 ComplementSquared(row.k) * K * K / row.N;
        EXPECT_NEAR(EllipticDegree(row.N, row.k1), row.k,
                    throughK1 + row.N * 8.0 * epsilon * (1.0 + 1.0 / row.k))
            << std::setprecision(17) << "N = " << row.N << ", k1 = " << row.k1;
    }
}

TEST(EllipticDegree, SolvesTheDegreeEquation)
{
    for (const int N : {1, 2, 3, 5, 8}) {
        for (const double k1 : {1e-5, 1e-3, 0.01, 0.1}) {
            const double k = EllipticDegree(N, k1);
            const auto [K, Kprime] = EllipticK(k);
            const auto [K1, K1prime] = EllipticK(k1);
            // Both quotients are good to the error that k1 has after its complement was taken.
            const double tolerance = 64.0 * epsilon + ErrorThroughComplement(k1 * k1) +
                                     ErrorThroughComplement(ComplementSquared(k)) +
                                     ErrorThroughComplement(k * k);
            EXPECT_NEAR(N * Kprime / K / (K1prime / K1), 1.0, tolerance) << N << " " << k1;
        }
    }
}

TEST(EllipticDegree, EndsForEveryModulus)
{
    for (const int N : {0, 1, 2, 9}) {
        EXPECT_EQ(EllipticDegree(N, 1.0), N == 0 ? 0.0 : 1.0) << N;
        EXPECT_TRUE(std::isnan(EllipticDegree(N, 1.5)) || N == 0) << N;
        EXPECT_TRUE(std::isnan(EllipticDegree(N, nan)) || N == 0) << N;
    }
}

} // namespace
} // namespace trelvanix
