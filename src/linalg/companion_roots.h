#ifndef TRELVANIX_LINALG_COMPANION_ROOTS_H
#define TRELVANIX_LINALG_COMPANION_ROOTS_H

#include <vector>

#include "common/complex_arithmetic.h"

namespace trelvanix
{

// An n x n matrix with ones below the diagonal and zeros elsewhere: with the first row -c[1] / c[0], ...,
// -c[n] / c[0] the companion matrix of a polynomial.
// Errors: std::length_error, std::bad_alloc.
std::vector<double> ShiftMatrix(int n);

// The n roots of c[0] z^n + ... + c[n], all n + 1 coefficients used, as eigenvalues of the companion
// matrix. The iteration deflates at 1e-12 and is held to ten sweeps an eigenvalue before it goes on as
// AllHessenbergEigenvalues tells. In the order in which they are found; conjugate pairs are neighbours,
// negative imaginary part first.
// Errors: std::bad_alloc. Numbers are not checked, c[0] = 0 gives non-finite roots.
// Source: Golub & Van Loan, Matrix Computations (companion matrix); Francis 1961.
std::vector<Complex> CompanionRoots(const double* c, int n);

} // namespace trelvanix

#endif
