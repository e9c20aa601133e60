#include "linalg/polynomial_roots.h"

#include <cmath>
#include <cstdint>
#include <new>

#include "common/growable_array.h"
#include "linalg/eigenvalues.h"

namespace trelvanix
{
namespace
{

// The largest n whose n * n fits 32 bits.
constexpr int largestDegree = 46340;

// An n x n matrix with ones below the diagonal; the first row is still to be filled.
std::vector<double> ShiftMatrix(int n)
{
    auto matrix = NewGrowableArray<double>(std::int64_t{n} * n);
    double* a = matrix.data();
    for (std::int64_t i = 1; i < n; ++i)
        a[i * n + i - 1] = 1.0;
    return matrix;
}

} // namespace

ResultArray Roots(const double* c, int n)
{
    if (n > largestDegree)
        throw std::bad_array_new_length();
    ResultArray roots = NewComplexResultArray(n);
    if (n == 0)
        return roots;

    std::vector<double> matrix = ShiftMatrix(n);
    double* firstRow = matrix.data();
    for (int k = 1; k < n; ++k)
        firstRow[k - 1] = -c[k] / c[0];
    // Not -c[n] / c[0]: the constant term counts as equal to the leading coefficient.
    firstRow[n - 1] = -1.0;

    std::int64_t i = 0;
    for (const Complex root : AllEigenvalues(matrix.data(), n, 1e-100, 60))
        StoreComplex(roots.get(), i++, root);
    return roots;
}

std::vector<Complex> CompanionRoots(const double* c, int n)
{
    std::vector<double> matrix = ShiftMatrix(n);
    double* firstRow = matrix.data();
    for (int k = 0; k < n; ++k)
        firstRow[k] = -c[k + 1] / c[0];
    return AllHessenbergEigenvalues(matrix.data(), n, 1e-12, 10);
}

} // namespace trelvanix
