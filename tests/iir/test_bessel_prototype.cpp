#include "iir/bessel_prototype.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "support/iir_arrays.h"

namespace trelvanix
{
namespace
{

using testing::Row;

constexpr double epsilon = std::numeric_limits<double>::epsilon();

// The reverse Bessel polynomial of order n scaled to constant term one, lowest power first: its
// coefficients follow one from the other, c[k+1] / c[k] = 2 (n - k) / ((2n - k) (k + 1)).
Row ScaledReverseBessel(int n)
{
    // ln of the constant term (2n)! / (2^n n!), for the scale of the variable.
    double logarithm = 0.0;
    for (int i = 1; i <= n; ++i)
        logarithm += std::log((n + i) / 2.0);
    const double scale = std::exp(logarithm / n);
    Row c = {1.0};
    for (int k = 0; k < n; ++k)
        c.push_back(c.back() * scale * 2.0 * (n - k) / ((2.0 * n - k) * (k + 1.0)));
    return c;
}

// The modulus of a polynomial, lowest power first, at x, relative to the sum of the moduli of its
// terms.
double RelativeResidual(const Row& c, Complex x)
{
    Complex value = 0.0;
    double size = 0.0;
    for (const double coefficient : Row(c.rbegin(), c.rend())) {
        value = value * x + coefficient;
        size = size * std::abs(x) + coefficient;
    }
    return std::abs(value) / size;
}

TEST(BesselPrototype, HasTheRootsOfReverseBesselPolynomials)
{
    for (int n = 1; n <= 25; ++n) {
        const Row c = ScaledReverseBessel(n);
        const AnalogPrototype prototype = BesselPrototype(n);
        ASSERT_EQ(prototype.poles.size(), static_cast<std::size_t>(n));
        EXPECT_EQ(prototype.gain, 1.0);
        double modulus = 1.0;
        for (const Complex p : prototype.poles) {
            // Rounding of the pole, of the coefficients (n steps) and of Horner's rule; the scale's
            // error counts n times.
            EXPECT_LT(RelativeResidual(c, p), 6.0 * n * epsilon) << n;
            modulus *= std::abs(p);
        }
        EXPECT_NEAR(modulus, 1.0, 2.0 * n * epsilon) << n;
    }
}

TEST(BesselPrototype, HasDifferentPolesInConjugatePairs)
{
    // With the residuals above this makes the rows complete.
    for (int n = 1; n <= 25; ++n) {
        const std::vector<Complex> poles = BesselPrototype(n).poles;
        std::size_t i = 0;
        if (n % 2 != 0) {
            EXPECT_EQ(poles[i++].imag(), 0.0) << n;
        }
        for (; i < poles.size(); i += 2) {
            EXPECT_EQ(poles[i], std::conj(poles[i + 1])) << n;
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_GT(std::abs(poles[i] - poles[j]), 0.05) << n;
        }
    }
}

TEST(BesselPrototype, HasThePrintedPolesOfLowOrders)
{
    EXPECT_EQ(BesselPrototype(1).poles, std::vector<Complex>{-1.0});
    EXPECT_EQ(BesselPrototype(2).poles,
              (std::vector<Complex>{{-0.8660254037844386, -0.5}, {-0.8660254037844386, 0.5}}));
    EXPECT_EQ(BesselPrototype(3).poles,
              (std::vector<Complex>{-0.9416000265332067,
                                    {-0.7456403858480767, -0.7113666249728353},
                                    {-0.7456403858480767, 0.7113666249728353}}));
    EXPECT_EQ(BesselPrototype(25).poles.front(), Complex(-0.9062073871811709));
    EXPECT_EQ(BesselPrototype(25).poles.back(), Complex(-0.2373280669322029, 1.2114766583825654));
}

} // namespace
} // namespace trelvanix
