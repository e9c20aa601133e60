#include "linalg/eigenvalues.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>

#include "common/instruction_set.h"
#include "common/work_array.h"
#include "linalg/sweep_kernel.h"

namespace trelvanix
{
namespace
{

// Row i of a row-major matrix with n columns.
inline double* Row(double* a, int n, int i)
{
    return a + std::int64_t{n} * i;
}

// Swaps index r with index c + 1 in rows (from column c on) and in columns.
void SwapWithPivot(double* a, int n, int r, int c)
{
    std::swap_ranges(Row(a, n, r) + c, Row(a, n, r) + n, Row(a, n, c + 1) + c);
    for (int i = 0; i < n; ++i)
        std::swap(Row(a, n, i)[r], Row(a, n, i)[c + 1]);
}

// The eigenvalues of the bottom 2 x 2 block.
Shifts FrancisShifts(double* a, int n, int nn)
{
    const double x = Row(a, n, nn)[nn];
    const double y = Row(a, n, nn - 1)[nn - 1];
    const double w = Row(a, n, nn)[nn - 1] * Row(a, n, nn - 1)[nn];
    return {x + y, x * y - w};
}

// Shifts near the diagonal entry at d that resemble no eigenvalue in particular: those of the block
// ((d + 0.75 s, -0.4375 s), (s, d + 0.75 s)) with s the size of the two subdiagonal entries nearby.
Shifts ExceptionalShifts(double diagonal, double subdiagonal1, double subdiagonal2)
{
    const double s = std::fabs(subdiagonal1) + std::fabs(subdiagonal2);
    const double h = 0.75 * s + diagonal;
    return {h + h, h * h - -0.4375 * s * s};
}

// One sweep over the active block l .. nn; see the kernel.
void Sweep(double* a, int n, int l, int nn, Shifts shifts, double negligible)
{
    KernelsFor<SweepKernels>(BestInstructionSet()).doubleShiftSweep(a, n, l, nn, shifts, negligible);
}

// First row of the block that ends at nn: the highest l whose subdiagonal entry counts as zero, or 0.
// ifBothZero stands for a sum of diagonal neighbours that is zero. The entry stays what it is.
int FirstRowOfBlock(double* a, int n, int nn, double tol, double ifBothZero)
{
    for (int l = nn; l >= 1; --l) {
        double neighbours = std::fabs(Row(a, n, l - 1)[l - 1]) + std::fabs(Row(a, n, l)[l]);
        if (neighbours == 0.0)
            neighbours = ifBothZero;
        if (std::fabs(Row(a, n, l)[l - 1]) <= tol * neighbours)
            return l;
    }
    return 0;
}

// Eigenvalues of the 2 x 2 block at rows nn - 1 and nn. Of two real ones the larger comes from the
// formula and the smaller from the product, which loses no digits.
void SplitPair(double* a, int n, int nn, double* wr, double* wi)
{
    const double A = Row(a, n, nn - 1)[nn - 1];
    const double D = Row(a, n, nn)[nn];
    const double det = A * D - Row(a, n, nn - 1)[nn] * Row(a, n, nn)[nn - 1];
    const double p = -(A + D);
    const double disc = p * p - 4.0 * det;
    const double t = std::sqrt(std::fabs(disc));
    if (disc > 0.0) {
        const double z = p < 0.0 ? (-p + t) * 0.5 : (-p - t) * 0.5;
        wr[nn] = z;
        wr[nn - 1] = det / z;
        wi[nn] = wi[nn - 1] = 0.0;
    } else {
        wr[nn] = wr[nn - 1] = -p * 0.5;
        wi[nn] = t * 0.5;
        wi[nn - 1] = -(t * 0.5);
    }
}

// Takes the block of one or two rows at l off the bottom; returns the new last row.
int SplitOff(double* a, int n, int l, int nn, double* wr, double* wi)
{
    if (l == nn) {
        wr[nn] = Row(a, n, nn)[nn];
        wi[nn] = 0.0;
    } else {
        SplitPair(a, n, nn, wr, wi);
    }
    return l - 1;
}

// The iteration within its limit; returns how many eigenvalues are left to find. Their entries of wr and wi,
// which lead the arrays, keep what they hold.
int Iterate(double* a, int n, double tol, int maxIter, double* wr, double* wi)
{
    int nn = n - 1;
    int its = 0;
    while (nn >= 0) {
        const int l = FirstRowOfBlock(a, n, nn, tol, 0.0);
        if (l >= nn - 1) {
            nn = SplitOff(a, n, l, nn, wr, wi);
            its = 0;
            continue;
        }
        const Shifts shifts = FrancisShifts(a, n, nn);
        // A sweep with such shifts makes every entry of the block not-a-number, and no later sweep
        // could split it: the limit is as good as reached.
        if (its >= maxIter || std::isnan(shifts.sum) || std::isnan(shifts.product))
            break;
        ++its;
        Sweep(a, n, l, nn, shifts, tol);
    }
    return nn + 1;
}

// Sum of the moduli of the leading count x count Hessenberg matrix.
double HessenbergNorm(double* a, int n, int count)
{
    double norm = 0.0;
    for (int i = 0; i < count; ++i)
        for (int j = std::max(i - 1, 0); j < count; ++j)
            norm += std::fabs(Row(a, n, i)[j]);
    return norm;
}

// Goes on where Iterate stopped, with count eigenvalues left; see AllHessenbergEigenvalues. Entries
// that are not found keep what they hold.
void IterateBeyondLimit(double* a, int n, int count, double* wr, double* wi)
{
    constexpr double epsilon = std::numeric_limits<double>::epsilon();
    // Below this the squares in the length of a reflected vector are lost.
    constexpr double negligible = 1e-150;
    constexpr int patience = 10;
    const double norm = HessenbergNorm(a, n, count);
    if (!std::isfinite(norm))
        return;
    const std::int64_t limit = 30 * std::int64_t{std::max(10, n)};

    int nn = count - 1;
    int its = 0;
    int exceptions = 0;
    for (std::int64_t sweeps = 0; nn >= 0;) {
        const int l = FirstRowOfBlock(a, n, nn, epsilon, norm);
        if (l >= nn - 1) {
            nn = SplitOff(a, n, l, nn, wr, wi);
            its = 0;
            continue;
        }
        Shifts shifts = FrancisShifts(a, n, nn);
        if (sweeps >= limit || std::isnan(shifts.sum) || std::isnan(shifts.product))
            return;
        if (sweeps == 0 || its == patience) {
            shifts = exceptions % 2 == 0 ? ExceptionalShifts(Row(a, n, nn)[nn], Row(a, n, nn)[nn - 1],
                                                             Row(a, n, nn - 1)[nn - 2])
                                         : ExceptionalShifts(Row(a, n, l)[l], Row(a, n, l + 1)[l],
                                                             Row(a, n, l + 2)[l + 1]);
            ++exceptions;
            its = 0;
        }
        ++its;
        ++sweeps;
        Sweep(a, n, l, nn, shifts, negligible);
    }
}

} // namespace

void ReduceToHessenberg(double* a, int n)
{
    for (int c = 0; c + 2 < n; ++c) {
        int r = c + 1;
        double x = Row(a, n, r)[c];
        for (int j = c + 2; j < n; ++j) {
            if (std::fabs(Row(a, n, j)[c]) > std::fabs(x)) {
                r = j;
                x = Row(a, n, j)[c];
            }
        }
        if (!(std::fabs(x) > 2.2204e-16))
            continue;
        if (r != c + 1)
            SwapWithPivot(a, n, r, c);
        const double* pivotRow = Row(a, n, c + 1);
        for (int i = c + 2; i < n; ++i) {
            double* row = Row(a, n, i);
            const double y = row[c] / x;
            row[c] = 0.0;
            for (int j = c + 1; j < n; ++j)
                row[j] -= y * pivotRow[j];
            for (int j = 0; j < n; ++j)
                Row(a, n, j)[c + 1] += y * Row(a, n, j)[i];
        }
    }
}

std::vector<Complex> AllHessenbergEigenvalues(double* a, int n, double tol, int maxIter)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    auto wr = NewWorkArray<double>(n);
    auto wi = NewWorkArray<double>(n);
    const int count = Iterate(a, n, tol, maxIter, wr.data(), wi.data());
    std::fill_n(wr.begin(), count, nan);
    IterateBeyondLimit(a, n, count, wr.data(), wi.data());

    std::vector<Complex> eigenvalues;
    const auto firstFoundBefore = static_cast<std::size_t>(count);
    for (std::size_t i = 0; i < wr.size(); ++i) {
        const bool usable = i >= firstFoundBefore || (std::isfinite(wr[i]) && std::isfinite(wi[i]));
        eigenvalues.push_back(usable ? Complex(wr[i], wi[i]) : Complex(nan, nan));
    }
    return eigenvalues;
}

std::vector<Complex> AllEigenvalues(double* a, int n, double tol, int maxIter)
{
    ReduceToHessenberg(a, n);
    return AllHessenbergEigenvalues(a, n, tol, maxIter);
}

} // namespace trelvanix
