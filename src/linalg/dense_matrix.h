#ifndef TRELVANIX_LINALG_DENSE_MATRIX_H
#define TRELVANIX_LINALG_DENSE_MATRIX_H

#include <vector>

namespace trelvanix
{

// X (m x k) times Y (k x n), all row-major. Every element is a sum from 0.0 in increasing inner index.
std::vector<double> MatMul(const std::vector<double>& X, const std::vector<double>& Y, int m, int k,
                           int n);

// Replaces an n x n matrix by its inverse: Doolittle's factorisation without pivoting, the inverses of
// both factors, their product. That no pivot is sought is part of the results, since it fixes the
// rounding of every designed coefficient: a zero pivot gives infinities or not-a-number, unreported,
// even where the inverse exists.
// Source: Golub & Van Loan, Matrix Computations.
void MatInverse(std::vector<double>& M, int n);

} // namespace trelvanix

#endif
