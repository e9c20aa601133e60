#ifndef TRELVANIX_TESTS_SUPPORT_FREQUENCY_RESPONSE_H
#define TRELVANIX_TESTS_SUPPORT_FREQUENCY_RESPONSE_H

#include <complex>
#include <cstddef>
#include <utility>
#include <vector>

#include "classic/state_space.h"

namespace trelvanix::testing
{

// A polynomial in x, highest power first (Horner).
inline Complex PolynomialAt(const std::vector<double>& c, Complex x)
{
    Complex sum = 0.0;
    for (const double coefficient : c)
        sum = sum * x + coefficient;
    return sum;
}

inline Complex ProductFromRoots(const std::vector<Complex>& roots, Complex x)
{
    Complex product = 1.0;
    for (const Complex root : roots)
        product *= x - root;
    return product;
}

// b over a at the frequency given as a fraction of Nyquist. Both have the same length, so that the
// powers of z^-1 and those of z give the same quotient.
inline Complex DigitalResponse(const std::vector<double>& b, const std::vector<double>& a,
                               double frequency)
{
    const Complex z = std::polar(1.0, 3.141592653589793 * frequency);
    return PolynomialAt(b, z) / PolynomialAt(a, z);
}

// C (xI - A)^-1 B + D by Gaussian elimination with partial pivoting.
inline Complex ModelAt(const StateSpace& model, Complex x)
{
    const auto n = static_cast<std::size_t>(model.order);
    std::vector<std::vector<Complex>> rows(n, std::vector<Complex>(n + 1));
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t j = 0; j < n; ++j)
            rows[i][j] = (i == j ? x : Complex(0.0)) - model.A[i * n + j];
        rows[i][n] = model.B[i];
    }
    for (std::size_t k = 0; k < n; ++k) {
        std::size_t pivot = k;
        for (std::size_t i = k + 1; i < n; ++i)
            if (std::abs(rows[i][k]) > std::abs(rows[pivot][k]))
                pivot = i;
        std::swap(rows[k], rows[pivot]);
        for (std::size_t i = 0; i < n; ++i) {
            if (i == k)
                continue;
            const Complex factor = rows[i][k] / rows[k][k];
            for (std::size_t j = k; j <= n; ++j)
                rows[i][j] -= factor * rows[k][j];
        }
    }
    Complex sum = model.D;
    for (std::size_t i = 0; i < n; ++i)
        sum += model.C[i] * rows[i][n] / rows[i][i];
    return sum;
}

} // namespace trelvanix::testing

#endif
