#include "linalg/dense_matrix.h"

#include <algorithm>
#include <cstdint>

#include "common/work_array.h"

namespace trelvanix
{
namespace
{

std::vector<double> NewMatrix(int rows, int columns)
{
    return NewWorkArray<double>(std::int64_t{rows} * columns);
}

// Inverse of a lower triangular matrix, column by column downwards.
std::vector<double> LowerInverse(const std::vector<double>& lower, int n)
{
    std::vector<double> inverse = NewMatrix(n, n);
    const double* L = lower.data();
    double* Li = inverse.data();
    const std::int64_t N = n;
    for (std::int64_t i = 0; i < N; ++i) {
        Li[i * N + i] = 1.0 / L[i * N + i];
        for (std::int64_t j = i + 1; j < N; ++j) {
            double sum = 0.0;
            for (std::int64_t m = i; m < j; ++m)
                sum += L[j * N + m] * Li[m * N + i];
            Li[j * N + i] = -Li[i * N + i] * sum;
        }
    }
    return inverse;
}

// Inverse of an upper triangular matrix, column by column upwards.
std::vector<double> UpperInverse(const std::vector<double>& upper, int n)
{
    std::vector<double> inverse = NewMatrix(n, n);
    const double* U = upper.data();
    double* Ui = inverse.data();
    const std::int64_t N = n;
    for (std::int64_t i = 0; i < N; ++i) {
        Ui[i * N + i] = 1.0 / U[i * N + i];
        for (std::int64_t j = i - 1; j >= 0; --j) {
            double sum = 0.0;
            for (std::int64_t m = j + 1; m <= i; ++m)
                sum += U[j * N + m] * Ui[m * N + i];
            Ui[j * N + i] = -1.0 / U[j * N + j] * sum;
        }
    }
    return inverse;
}

} // namespace

std::vector<double> MatMul(const std::vector<double>& X, const std::vector<double>& Y, int m, int k,
                           int n)
{
    std::vector<double> product = NewMatrix(m, n);
    // The inner index in the middle loop: the additions into an element keep their order, and the
    // innermost loop runs along rows.
    const double* x = X.data();
    for (std::int64_t i = 0; i < m; ++i) {
        double* row = product.data() + i * n;
        for (std::int64_t l = 0; l < k; ++l) {
            const double* y = Y.data() + l * n;
            for (int j = 0; j < n; ++j)
                row[j] += x[i * k + l] * y[j];
        }
    }
    return product;
}

void MatInverse(std::vector<double>& M, int n)
{
    std::vector<double> lower = NewMatrix(n, n);
    std::vector<double> upper = NewMatrix(n, n);
    const double* W = M.data();
    double* L = lower.data();
    double* U = upper.data();
    const std::int64_t N = n;
    // Row k of U, then column k of L. The division of a pivot by itself takes place, but for the first:
    // a zero pivot has to show there too.
    if (n > 0)
        L[0] = 1.0;
    for (std::int64_t k = 0; k < N; ++k) {
        for (std::int64_t j = k; j < N; ++j) {
            double sum = 0.0;
            for (std::int64_t m = 0; m < k; ++m)
                sum += L[k * N + m] * U[m * N + j];
            U[k * N + j] = W[k * N + j] - sum;
        }
        for (std::int64_t i = std::max<std::int64_t>(k, 1); i < N; ++i) {
            double sum = 0.0;
            for (std::int64_t m = 0; m < k; ++m)
                sum += L[i * N + m] * U[m * N + k];
            L[i * N + k] = (W[i * N + k] - sum) / U[k * N + k];
        }
    }
    M = MatMul(UpperInverse(upper, n), LowerInverse(lower, n), n, n, n);
}

} // namespace trelvanix
