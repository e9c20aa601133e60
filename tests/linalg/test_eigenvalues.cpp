#include "linalg/eigenvalues.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "support/bits.h"
#include "support/samples.h"

namespace trelvanix
{
namespace
{

using testing::HasSameBits;
using testing::SameBits;
using testing::Samples;

constexpr double epsilon = std::numeric_limits<double>::epsilon();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

std::vector<Complex> Eigenvalues(std::vector<double> a, int n, double tol = 1e-30, int maxIter = 60)
{
    return AllHessenbergEigenvalues(a.data(), n, tol, maxIter);
}

bool HaveSameBits(const std::vector<Complex>& x, const std::vector<Complex>& y)
{
    return std::equal(x.begin(), x.end(), y.begin(), y.end(), [](Complex a, Complex b) {
        return SameBits(a.real(), b.real()) && SameBits(a.imag(), b.imag());
    });
}

std::vector<double> RandomMatrix(Samples& samples, int n)
{
    return samples.Plain(static_cast<std::size_t>(n) * static_cast<std::size_t>(n));
}

double Trace(const std::vector<double>& a, int n)
{
    double sum = 0.0;
    const double* element = a.data();
    for (int i = 0; i < n; ++i)
        sum += element[i * n + i];
    return sum;
}

double TraceOfSquare(const std::vector<double>& a, int n)
{
    double sum = 0.0;
    const double* element = a.data();
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
            sum += element[i * n + j] * element[j * n + i];
    return sum;
}

// The polynomial x^n + 1: a cyclic shift with one sign changed, on which shifts from the bottom block
// make no progress.
std::vector<double> TwistedShift(int n)
{
    std::vector<double> a(static_cast<std::size_t>(n) * static_cast<std::size_t>(n));
    double* element = a.data();
    element[n - 1] = -1.0;
    for (int i = 1; i < n; ++i)
        element[i * n + i - 1] = 1.0;
    return a;
}

// What is found within the limit alone. A block of three is put above the matrix which counts as having
// reached the limit at once, and beyond the limit nothing is found where the norm is no number.
std::vector<Complex> WithinLimit(const std::vector<double>& a, int n, double tol = 1e-30,
                                 int maxIter = 60)
{
    const auto below = static_cast<std::size_t>(n);
    const std::size_t size = below + 3;
    std::vector<double> both(size * size);
    both[size] = both[2 * size + 1] = 1.0;
    both[size + 2] = nan;
    for (std::size_t i = 0; i < below; ++i)
        std::copy_n(a.data() + below * i, below, both.data() + size * (3 + i) + 3);
    const std::vector<Complex> values = Eigenvalues(both, n + 3, tol, maxIter);
    const auto found = std::find_if(values.rbegin(), values.rend(),
                                    [](Complex value) { return std::isnan(value.real()); });
    return {found.base(), values.end()};
}

// Largest distance from a value to the nearest one of expected, each of which serves once.
double DistanceOfSets(std::vector<Complex> values, const std::vector<Complex>& expected)
{
    double largest = 0.0;
    for (const Complex wanted : expected) {
        const auto nearest = std::min_element(values.begin(), values.end(), [=](Complex x, Complex y) {
            return std::abs(x - wanted) < std::abs(y - wanted);
        });
        largest = std::max(largest, std::abs(*nearest - wanted));
        values.erase(nearest);
    }
    return largest;
}

// ---- ReduceToHessenberg

TEST(ReduceToHessenberg, LeavesMatricesBelowOrderThree)
{
    std::vector<double> a = {1.0, 2.0, 3.0, 4.0};
    ReduceToHessenberg(a.data(), 2);
    EXPECT_EQ(a, (std::vector<double>{1.0, 2.0, 3.0, 4.0}));
    ReduceToHessenberg(a.data(), 1);
    ReduceToHessenberg(nullptr, 0);
    EXPECT_EQ(a, (std::vector<double>{1.0, 2.0, 3.0, 4.0}));
}

TEST(ReduceToHessenberg, PivotsAndEliminates)
{
    // By hand: rows and columns 1 and 2 change places, giving (1 3 2 / 4 8 6 / 2 5 4); then half of
    // row 1 is taken from row 2, and half of column 2 added to column 1.
    std::vector<double> a = {1.0, 2.0, 3.0, 2.0, 4.0, 5.0, 4.0, 6.0, 8.0};
    ReduceToHessenberg(a.data(), 3);
    EXPECT_EQ(a, (std::vector<double>{1.0, 4.0, 2.0, 4.0, 11.0, 6.0, 0.0, 1.5, 1.0}));
}

TEST(ReduceToHessenberg, TakesTheFirstOfEqualPivots)
{
    // No exchange: row 2 gets row 1 added, column 1 gets column 2 subtracted.
    std::vector<double> a = {1.0, 2.0, 3.0, 2.0, 4.0, 5.0, -2.0, 6.0, 8.0};
    ReduceToHessenberg(a.data(), 3);
    EXPECT_EQ(a, (std::vector<double>{1.0, -1.0, 3.0, 2.0, -1.0, 5.0, 0.0, -3.0, 13.0}));
}

TEST(ReduceToHessenberg, SkipsAColumnWhosePivotIsAtTheThreshold)
{
    const std::vector<double> small = {1.0, 2.0, 3.0, 1e-17, 4.0, 5.0, 2.2204e-16, 6.0, 8.0};
    std::vector<double> a = small;
    ReduceToHessenberg(a.data(), 3);
    EXPECT_EQ(a, small);

    // Above the threshold, but below the machine epsilon, 2.220446e-16.
    a[6] = 2.22042e-16;
    ReduceToHessenberg(a.data(), 3);
    EXPECT_EQ(a[6], 0.0);
    EXPECT_EQ(a[3], 2.22042e-16);
}

TEST(ReduceToHessenberg, SkipsAColumnThatStartsWithNotANumber)
{
    std::vector<double> a = {1.0, 2.0, 3.0, nan, 4.0, 5.0, 7.0, 6.0, 8.0};
    ReduceToHessenberg(a.data(), 3);
    EXPECT_TRUE(HasSameBits({1.0, 2.0, 3.0, nan, 4.0, 5.0, 7.0, 6.0, 8.0}, a.data()));
}

TEST(ReduceToHessenberg, KeepsTheCharacteristicSums)
{
    Samples samples(311);
    for (const int n : {3, 5, 8, 13, 21, 34}) {
        const std::vector<double> a = RandomMatrix(samples, n);
        std::vector<double> h = a;
        ReduceToHessenberg(h.data(), n);
        const double* element = h.data();
        for (int i = 2; i < n; ++i)
            for (int j = 0; j < i - 1; ++j)
                EXPECT_EQ(element[i * n + j], 0.0);
        // Entries below 1, multipliers at most 1: n additions of n products each, growth ten in hand.
        EXPECT_NEAR(Trace(h, n), Trace(a, n), 10.0 * n * n * epsilon) << n;
        EXPECT_NEAR(TraceOfSquare(h, n), TraceOfSquare(a, n), 100.0 * n * n * epsilon) << n;
    }
}

// ---- AllHessenbergEigenvalues

TEST(AllHessenbergEigenvalues, FindsNothingInAnEmptyMatrix)
{
    EXPECT_TRUE(AllHessenbergEigenvalues(nullptr, 0, 1e-30, 60).empty());
}

TEST(AllHessenbergEigenvalues, ReturnsASingleElement)
{
    EXPECT_EQ(Eigenvalues({-2.5}, 1), std::vector<Complex>{-2.5});
}

TEST(AllHessenbergEigenvalues, PutsTheNegativeImaginaryPartFirst)
{
    EXPECT_EQ(Eigenvalues({0.0, -1.0, 1.0, 0.0}, 2), (std::vector<Complex>{{0.0, -1.0}, {0.0, 1.0}}));
}

TEST(AllHessenbergEigenvalues, TakesADiagonalAsItIs)
{
    // By the formula of the pair the larger one would stand last.
    EXPECT_EQ(Eigenvalues({3.0, 0.0, 0.0, 1.0}, 2), (std::vector<Complex>{3.0, 1.0}));
}

TEST(AllHessenbergEigenvalues, FindsTheLargerOfTwoByTheFormula)
{
    EXPECT_EQ(Eigenvalues({3.0, -2.0, 1.0, 0.0}, 2), (std::vector<Complex>{1.0, 2.0}));
    EXPECT_EQ(Eigenvalues({-3.0, -2.0, 1.0, 0.0}, 2), (std::vector<Complex>{-1.0, -2.0}));
}

TEST(AllHessenbergEigenvalues, LosesNoDigitsOfTheSmallerOfTwo)
{
    // x^2 - 1e8 x + 1 has the roots 1e8 and 1e-8, each to a relative 1e-16; the plain formula would
    // give 7.45e-9 for the smaller.
    const std::vector<Complex> values = Eigenvalues({1e8, -1.0, 1.0, 0.0}, 2);
    EXPECT_NEAR(values[1].real(), 1e8, 1e8 * 2 * epsilon);
    EXPECT_NEAR(values[0].real(), 1e-8, 1e-8 * 2 * epsilon);
}

TEST(AllHessenbergEigenvalues, CountsADoubleRootAsAPair)
{
    EXPECT_TRUE(HaveSameBits(Eigenvalues({2.0, -1.0, 1.0, 0.0}, 2), {{1.0, -0.0}, {1.0, 0.0}}));
}

TEST(AllHessenbergEigenvalues, KeepsTheEntryThatCountsAsZero)
{
    std::vector<double> a = {1.0, 5.0, 1e-12, 2.0};
    EXPECT_EQ(AllHessenbergEigenvalues(a.data(), 2, 1e-11, 60), (std::vector<Complex>{1.0, 2.0}));
    EXPECT_EQ(a[2], 1e-12);
}

TEST(AllHessenbergEigenvalues, SplitsAtTheToleranceItself)
{
    // tol (|1| + |3|) = 0.5: an entry of 0.5 splits, the next larger double does not.
    EXPECT_EQ(Eigenvalues({1.0, 1.0, 0.5, 3.0}, 2, 0.125), (std::vector<Complex>{1.0, 3.0}));
    const double larger = std::nextafter(0.5, 1.0);
    EXPECT_GT(Eigenvalues({1.0, 1.0, larger, 3.0}, 2, 0.125)[1].real(), 3.2);
}

TEST(AllHessenbergEigenvalues, StopsAtItsLimit)
{
    // The rows 3 and 4 split off at once, the leading block of three would need a sweep with other shifts.
    std::vector<double> a(25);
    const std::vector<double> shift = TwistedShift(3);
    for (std::size_t i = 0; i < 3; ++i)
        std::copy_n(shift.data() + 3 * i, 3, a.data() + 5 * i);
    a[3 * 5 + 3] = 4.0;
    a[4 * 5 + 4] = 5.0;
    for (const int limit : {0, 60})
        EXPECT_EQ(WithinLimit(a, 5, 1e-30, limit), (std::vector<Complex>{4.0, 5.0}));
}

TEST(AllHessenbergEigenvalues, CountsSweepsAnewForEachEigenvalue)
{
    // Two equal blocks: what suffices for one suffices for both, found one after the other.
    const std::vector<double> block = {3.0, 1.0, 2.0, 1.0, -1.0, 1.0, 0.0, 2.0, 5.0};
    int needed = 0;
    while (WithinLimit(block, 3, 1e-30, needed).size() != 3)
        ++needed;
    ASSERT_GT(needed, 0);
    std::vector<double> two(36);
    for (std::size_t i = 0; i < 3; ++i) {
        std::copy_n(block.data() + 3 * i, 3, two.data() + 6 * i);
        std::copy_n(block.data() + 3 * i, 3, two.data() + 6 * (3 + i) + 3);
    }
    EXPECT_EQ(WithinLimit(two, 6, 1e-30, needed).size(), 6U);
    EXPECT_LT(WithinLimit(two, 6, 1e-30, needed - 1).size(), 3U);
}

TEST(AllHessenbergEigenvalues, SkipsReflectionsOfVectorsBelowTheTolerance)
{
    // The polynomial x^3 - 3 x + 1. Nothing splits off beside a diagonal of zeros, however large the
    // tolerance; but with tol = 10 every vector is negligible, so that sixty sweeps change nothing.
    const std::vector<double> a = {0.0, 3.0, -1.0, 1.0, 0.0, 0.0, 0.0, 1.0, 0.0};
    EXPECT_EQ(WithinLimit(a, 3).size(), 3U);
    EXPECT_EQ(WithinLimit(a, 3, 10.0).size(), 0U);
    EXPECT_TRUE(HaveSameBits(Eigenvalues(a, 3, 10.0, 60), Eigenvalues(a, 3, 10.0, 0)));
}

TEST(AllHessenbergEigenvalues, GivesTheSumsOfRandomMatrices)
{
    Samples samples(312);
    for (const int n : {3, 4, 7, 12, 24, 50}) {
        const std::vector<double> a = RandomMatrix(samples, n);
        std::vector<double> h = a;
        ReduceToHessenberg(h.data(), n);
        EXPECT_EQ(WithinLimit(h, n).size(), static_cast<std::size_t>(n));
        // Within the limit, and without any sweep in it.
        for (const int maxIter : {60, 0}) {
            Complex sum = 0.0;
            double sumOfSquares = 0.0;
            for (const Complex value : Eigenvalues(h, n, 1e-30, maxIter)) {
                sum += value;
                sumOfSquares += value.real() * value.real() - value.imag() * value.imag();
            }
            // Backward stable: every eigenvalue sum moves by at most about n epsilon times the norm, which
            // is below n; the elementary reduction may cost a factor of some tens.
            EXPECT_NEAR(sum.real(), Trace(a, n), 50.0 * n * n * epsilon) << n;
            EXPECT_NEAR(sumOfSquares, TraceOfSquare(a, n), 50.0 * n * n * n * epsilon) << n;
            EXPECT_EQ(sum.imag(), 0.0) << n;
        }
    }
}

TEST(AllHessenbergEigenvalues, FindsGradedEigenvalues)
{
    // Triangular but for the tiny entries below the diagonal, each of which moves its neighbours by
    // less than its product with the entry above: relative to 1e-8 times the diagonal.
    const std::vector<double> a = {1.0, 1.0,   1.0,  1.0, 1e-12, 1e-4, 1.0,   1.0,
                                   0.0, 1e-20, 1e-8, 1.0, 0.0,   0.0,  1e-28, 1e-12};
    std::vector<double> sorted;
    for (const Complex value : Eigenvalues(a, 4)) {
        EXPECT_EQ(value.imag(), 0.0);
        sorted.push_back(value.real());
    }
    std::sort(sorted.begin(), sorted.end());
    EXPECT_NEAR(sorted[3], 1.0, 1e-8);
    EXPECT_NEAR(sorted[2], 1e-4, 1e-10);
}

TEST(AllHessenbergEigenvalues, FindsADefectiveEigenvalueToTheRootOfTheAccuracy)
{
    // (x - 1)^4: a perturbation by epsilon times the norm (11) moves a fourfold root by its fourth
    // root.
    const std::vector<double> a = {4.0, -6.0, 4.0, -1.0, 1.0, 0.0, 0.0, 0.0,
                                   0.0, 1.0,  0.0, 0.0,  0.0, 0.0, 1.0, 0.0};
    for (const Complex value : Eigenvalues(a, 4))
        EXPECT_LT(std::abs(value - 1.0), 2.0 * std::pow(11.0 * epsilon, 0.25));
    // A Jordan block that is triangular is exact.
    EXPECT_EQ(Eigenvalues({2.0, 1.0, 0.0, 0.0, 2.0, 1.0, 0.0, 0.0, 2.0}, 3),
              (std::vector<Complex>{2.0, 2.0, 2.0}));
}

TEST(AllHessenbergEigenvalues, EndsForEveryNotANumber)
{
    for (const double bad : {nan, infinity, -infinity}) {
        for (std::size_t at = 0; at < 16; ++at) {
            Samples samples(313);
            std::vector<double> a = samples.Plain(16);
            a[8] = a[12] = a[13] = 0.0;
            a[at] = bad;
            // An infinity on the diagonal may split off as it is; nothing else that is not finite remains.
            for (const Complex value : Eigenvalues(a, 4))
                EXPECT_TRUE(std::isnan(value.real()) == std::isnan(value.imag())) << value << " " << at;
        }
    }
}

TEST(AllHessenbergEigenvalues, FindsWhatSplitsOffBesideNotANumber)
{
    std::vector<double> a(25);
    std::fill_n(a.begin(), 15, nan);
    a[3 * 5 + 3] = 4.0;
    a[4 * 5 + 4] = 5.0;
    for (std::size_t i = 0; i < 3; ++i)
        a[5 * i + 3] = a[5 * i + 4] = 0.0;
    const std::vector<Complex> values = Eigenvalues(a, 5);
    // Row 3 has a neighbour that is not a number, so only row 4 can be told apart.
    EXPECT_EQ(values[4], 5.0);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_TRUE(std::isnan(values[i].real()) && std::isnan(values[i].imag())) << i;
}

TEST(AllHessenbergEigenvalues, FindsTheRootsOfUnityBeyondTheLimit)
{
    for (const int n : {3, 4, 5, 8, 16, 33, 64, 100}) {
        std::vector<double> a = TwistedShift(n);
        ASSERT_EQ(WithinLimit(a, n, 1e-100).size(), 0U);
        std::vector<Complex> expected(static_cast<std::size_t>(n));
        double odd = 1.0;
        for (Complex& root : expected) {
            root = std::polar(1.0, 3.141592653589793 * odd / n);
            odd += 2.0;
        }
        // The matrix is orthogonal and so are all steps: n sweeps, each with some n roundings that add
        // up like a random walk.
        EXPECT_LT(DistanceOfSets(AllHessenbergEigenvalues(a.data(), n, 1e-100, 60), expected),
                  4.0 * n * epsilon)
            << n;
    }
}

TEST(AllHessenbergEigenvalues, KeepsEveryBitFoundBeforeTheLimit)
{
    // With few sweeps a part is found within the limit.
    Samples samples(315);
    int interrupted = 0;
    for (int round = 0; round < 120; ++round) {
        const int n = 12;
        const int maxIter = 3 + round % 6;
        std::vector<double> h = RandomMatrix(samples, n);
        ReduceToHessenberg(h.data(), n);
        const std::vector<Complex> before = WithinLimit(h, n, 1e-30, maxIter);
        const std::vector<Complex> all = Eigenvalues(h, n, 1e-30, maxIter);
        const auto found = static_cast<std::ptrdiff_t>(before.size());
        EXPECT_TRUE(HaveSameBits({all.end() - found, all.end()}, before)) << round;
        for (const Complex value : all)
            EXPECT_TRUE(std::isfinite(value.real()));
        interrupted += 0 < found && found < n ? 1 : 0;
    }
    // So that the statement is about something.
    EXPECT_GT(interrupted, 5);
}

TEST(AllHessenbergEigenvalues, GivesNotANumberForWhatIsNotFinite)
{
    for (const double bad : {nan, infinity}) {
        std::vector<double> a = TwistedShift(6);
        a[2] = bad;
        for (const Complex value : AllHessenbergEigenvalues(a.data(), 6, 1e-30, 60)) {
            EXPECT_TRUE(std::isnan(value.real()));
            EXPECT_TRUE(std::isnan(value.imag()));
        }
    }
}

TEST(AllHessenbergEigenvalues, MeasuresAnEntryBetweenZerosByTheWholeNorm)
{
    // 1e-13 is nothing beside the entries below the diagonal of the other block, but much beside the rest:
    // the two eigenvalues above are zeros then, or else the roots of 1e-13. The other three are 8^(1/3).
    std::vector<double> a = {
        0.0,   1.0, 0.0,    0.0,    0.0,  //
        1e-13, 0.0, 0.0,    0.0,    0.0,  //
        0.0,   0.0, 0.0,    0.0,    8e-6, //
        0.0,   0.0, 1000.0, 0.0,    0.0,  //
        0.0,   0.0, 0.0,    1000.0, 0.0,
    };
    const std::vector<Complex> values = AllHessenbergEigenvalues(a.data(), 5, 1e-30, 0);
    EXPECT_EQ(values[0], 0.0);
    EXPECT_EQ(values[1], 0.0);
    for (std::size_t i = 2; i < 5; ++i)
        EXPECT_NEAR(std::abs(values[i]), 2.0, 1e-9);
}

TEST(AllHessenbergEigenvalues, SplitsNothingAtAnInfiniteNorm)
{
    // Without a sweep within the limit the infinity has not spread yet. Every diagonal entry is zero:
    // measured by the norm, the ones beside them would count as zero and the eigenvalues be zeros.
    std::vector<double> a = TwistedShift(6);
    a[2] = infinity;
    for (const Complex value : AllHessenbergEigenvalues(a.data(), 6, 1e-30, 0))
        EXPECT_TRUE(std::isnan(value.real()));
}

TEST(AllHessenbergEigenvalues, GivesNotANumberWhereEntriesOverflow)
{
    // The shifts' sum is 2e200, their product infinity less infinity.
    std::vector<double> large(9, 1e200);
    large[6] = 0.0;
    for (const Complex value : AllHessenbergEigenvalues(large.data(), 3, 1e-30, 60)) {
        EXPECT_TRUE(std::isnan(value.real()));
        EXPECT_TRUE(std::isnan(value.imag()));
    }

    // Eigenvalues 1e200 i and -1e200 i, whose discriminant overflows: real parts zero, imaginary parts
    // infinite. Without a tolerance or a sweep the limit comes first; beyond it 1e-300 counts as zero.
    std::vector<double> pair = {0.0, -1e200, 0.0, 1e200, 0.0, 0.0, 0.0, 1e-300, 1.0};
    const std::vector<Complex> values = AllHessenbergEigenvalues(pair.data(), 3, 0.0, 0);
    EXPECT_EQ(values[2], Complex(1.0, 0.0));
    for (const std::size_t i : {0U, 1U}) {
        EXPECT_TRUE(std::isnan(values[i].real()));
        EXPECT_TRUE(std::isnan(values[i].imag()));
    }
}

TEST(AllHessenbergEigenvalues, EndsSoonForALargeMatrixOfNotANumber)
{
    // Sixty sweeps over it, or three hundred, would take seconds.
    const int n = 1000;
    std::vector<double> a(static_cast<std::size_t>(n) * n, nan);
    EXPECT_TRUE(std::isnan(AllHessenbergEigenvalues(a.data(), n, 1e-30, 60).front().real()));
}

TEST(AllEigenvalues, FindsThemInADenseMatrix)
{
    // (2 1 1 / 1 2 1 / 1 1 2) = I + ones: 4, 1, 1. The double eigenvalue has two eigenvectors, so it
    // moves by no more than the rounding of the matrix.
    std::vector<double> a = {2.0, 1.0, 1.0, 1.0, 2.0, 1.0, 1.0, 1.0, 2.0};
    EXPECT_LT(DistanceOfSets(AllEigenvalues(a.data(), 3, 1e-30, 60), {4.0, 1.0, 1.0}), 40 * epsilon);
}

} // namespace
} // namespace trelvanix
