#include "linalg/companion_roots.h"

#include <cstdint>

#include "common/work_array.h"
#include "linalg/eigenvalues.h"

namespace trelvanix
{

std::vector<double> ShiftMatrix(int n)
{
    auto matrix = NewWorkArray<double>(std::int64_t{n} * n);
    double* a = matrix.data();
    for (std::int64_t i = 1; i < n; ++i)
        a[i * n + i - 1] = 1.0;
    return matrix;
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
