#include "classic/roots.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <new>
#include <vector>

#include "linalg/eigenvalues.h"
#include "support/bits.h"
#include "support/samples.h"
#include "trelvanix.h"

namespace trelvanix
{
namespace
{

using testing::HasSameBits;
using testing::Samples;

constexpr double epsilon = std::numeric_limits<double>::epsilon();

std::vector<double> RootsOf(const std::vector<double>& c, int n)
{
    const ResultArray roots = Roots(c.data(), n);
    return {roots.get(), roots.get() + 2 * std::ptrdiff_t{n}};
}

TEST(Roots, KeepsTheConstantTermEqualToTheLeadingCoefficient)
{
    // lambda^2 - 3 lambda + 1, not lambda^2 - 3 lambda + 2.
    const std::vector<double> expected = {(3.0 - std::sqrt(5.0)) / 2.0, 0.0,
                                          (3.0 + std::sqrt(5.0)) / 2.0, 0.0};
    EXPECT_TRUE(testing::IsNear(expected, RootsOf({1.0, -3.0, 2.0}, 2).data(), 4 * epsilon));
}

TEST(Roots, ReadsNoConstantTerm)
{
    // The vectors end before it; the address sanitizer would tell.
    EXPECT_TRUE(HasSameBits({0.0, -1.0, 0.0, 1.0}, RootsOf({1.0, 0.0}, 2).data()));
    EXPECT_TRUE(HasSameBits({-1.0, 0.0}, RootsOf({}, 1).data()));
}

TEST(Roots, KeepsMinusOneForEveryPolynomialOfDegreeOne)
{
    for (const double c : {1.0, -7.0, 0.0, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_TRUE(HasSameBits({-1.0, 0.0}, RootsOf({c, 3.0}, 1).data()));
}

TEST(Roots, ReturnsAnEmptyArrayForDegreeZero)
{
    EXPECT_NE(Roots(nullptr, 0), nullptr);
}

TEST(Roots, RefusesImpossibleDegrees)
{
    const double c[] = {1.0, 2.0};
    EXPECT_THROW(Roots(c, -1), std::bad_array_new_length);
    EXPECT_THROW(Roots(c, std::numeric_limits<int>::min()), std::bad_array_new_length);
    // 46341 squared no longer fits 32 bits.
    EXPECT_THROW(Roots(c, 46341), std::bad_array_new_length);
    EXPECT_THROW(Roots(c, std::numeric_limits<int>::max()), std::bad_array_new_length);
}

TEST(Roots, ShowsAZeroLeadingCoefficient)
{
    // The first row holds -1 / 0, and -0 / 0 where the second coefficient is zero too.
    EXPECT_EQ(RootsOf({0.0, 1.0, 2.0, 3.0, 4.0}, 5)[0], -std::numeric_limits<double>::infinity());
    for (const double part : RootsOf({0.0, 0.0, 2.0, 3.0, 4.0}, 5))
        EXPECT_TRUE(std::isnan(part));
}

TEST(Roots, FindsAllRootsOfEvenPolynomials)
{
    // z^4 + z^2 + 1: e^(j pi / 3), e^(2 j pi / 3) and their conjugates. Every diagonal entry is zero,
    // which the sweeps keep, so that no entry ever counts as small beside its neighbours.
    const std::vector<double> roots = RootsOf({1.0, 0.0, 1.0, 0.0}, 4);
    for (int i = 0; i < 4; ++i) {
        const Complex z = LoadComplex(roots.data(), i);
        EXPECT_NEAR(std::abs(z), 1.0, 8 * epsilon);
        EXPECT_NEAR(std::fabs(z.real()), 0.5, 8 * epsilon);
        EXPECT_NEAR(std::fabs(z.imag()), std::sqrt(0.75), 8 * epsilon);
    }
}

TEST(Roots, MultiplyToOneInModulus)
{
    Samples samples(321);
    for (const int n : {2, 3, 6, 11, 20, 40}) {
        std::vector<double> c = samples.Plain(static_cast<std::size_t>(n));
        c[0] = 1.0;
        const std::vector<double> roots = RootsOf(c, n);
        Complex product = 1.0;
        Complex sum = 0.0;
        for (int i = 0; i < n; ++i) {
            product = Multiply(product, LoadComplex(roots.data(), i));
            sum += LoadComplex(roots.data(), i);
        }
        // Roots of random coefficients are simple and near the unit circle.
        const double tolerance = 100.0 * n * epsilon;
        EXPECT_NEAR(product.real(), n % 2 == 0 ? 1.0 : -1.0, tolerance) << n;
        EXPECT_NEAR(product.imag(), 0.0, tolerance) << n;
        EXPECT_NEAR(sum.real(), -c[1], tolerance) << n;
    }
}

TEST(Roots, HaveTheBitsOfTheReducedCompanionMatrix)
{
    // The matrix as it is described, and the reduction that Roots leaves out.
    const auto plain = [](const std::vector<double>& c, int n) {
        const auto columns = static_cast<std::size_t>(n);
        std::vector<double> a(columns * columns);
        for (std::size_t k = 1; k < columns; ++k) {
            a[k - 1] = -c[k] / c[0];
            a[k * columns + k - 1] = 1.0;
        }
        a[columns - 1] = -1.0;
        std::vector<double> roots;
        for (const Complex root : AllEigenvalues(a.data(), n, 1e-100, 60)) {
            roots.push_back(root.real());
            roots.push_back(root.imag());
        }
        return roots;
    };
    Samples samples(329);
    for (int n = 1; n <= 40; ++n) {
        const auto count = static_cast<std::size_t>(n);
        for (int round = 0; round < 4; ++round) {
            std::vector<double> c = samples.Plain(count);
            ASSERT_TRUE(HasSameBits(plain(c, n), RootsOf(c, n).data())) << n;
            // Zeros of either sign among the coefficients, then infinities and not-a-number.
            for (double& value : c)
                if (samples.NextBelow(3) == 0)
                    value = samples.NextBelow(2) == 0 ? 0.0 : -0.0;
            c[0] = round % 2 == 0 ? 1.5 : -1.5;
            ASSERT_TRUE(HasSameBits(plain(c, n), RootsOf(c, n).data())) << n;
            c = samples.Hostile(count);
            ASSERT_TRUE(HasSameBits(plain(c, n), RootsOf(c, n).data())) << n;
        }
    }
}

TEST(Roots, AreReleasedByTheHost)
{
    const double c[] = {1.0, -3.0};
    EXPECT_EQ(ReleaseComplexDoubleArray(::Roots(c, 2)), 1);
}

} // namespace
} // namespace trelvanix
