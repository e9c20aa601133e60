#ifndef TRELVANIX_LINALG_EIGENVALUES_H
#define TRELVANIX_LINALG_EIGENVALUES_H

#include <vector>

#include "common/complex_arithmetic.h"

namespace trelvanix
{

// Brings a real n x n matrix (row-major, overwritten) to upper Hessenberg form by stabilised elementary
// similarity transformations. A column whose pivot is at most 2.2204e-16 in modulus is left as it is.
// n < 3 does nothing; numbers are not checked.
// Source: Gaussian similarity with pivoting, Wilkinson, The Algebraic Eigenvalue Problem, 1965.
void ReduceToHessenberg(double* a, int n);

// Eigenvalues of a real upper Hessenberg matrix by the double-shift QR iteration, in the order of the rows
// where they split off; of a complex pair the negative imaginary part comes first.
//
//   a        n x n, row-major, overwritten
//   tol      a subdiagonal entry splits the matrix when its modulus is at most tol times the sum of
//            the moduli of its two diagonal neighbours; also the sum of moduli below which the vector
//            of a reflection counts as zero (an absolute bound)
//   maxIter  sweeps allowed between one eigenvalue and the next, without exceptional shifts. A block that
//            is no longer a number counts as having reached the limit.
//
// What is found within the limit keeps its bits. The rest, a leading part, is found by going on with
//
//   - a subdiagonal entry counting as zero at machine epsilon times its two diagonal neighbours, or
//     times the norm of the remaining matrix where both neighbours are zero,
//   - exceptional shifts, on the first sweep and after every ten without an eigenvalue, alternately
//     from the bottom and from the top of the block,
//   - 30 max(10, n) sweeps in all.
//
// What even that doesn't find, or what isn't finite there, is not-a-number in both parts.
// Source: Francis 1961; Golub & Van Loan, Matrix Computations; exceptional shifts as in LAPACK's dlahqr,
// Anderson et al. 1999.
std::vector<Complex> AllHessenbergEigenvalues(double* a, int n, double tol, int maxIter);

// The eigenvalues of a dense real n x n matrix (overwritten): both steps above.
std::vector<Complex> AllEigenvalues(double* a, int n, double tol, int maxIter);

} // namespace trelvanix

#endif
