#ifndef TRELVANIX_LINALG_SWEEP_KERNEL_H
#define TRELVANIX_LINALG_SWEEP_KERNEL_H

namespace trelvanix
{

// Sum and product of the two shifts of a sweep.
struct Shifts {
    double sum;
    double product;
};

// One implicit double-shift sweep over rows and columns l .. nn, at least three, of an n x n upper
// Hessenberg matrix (row-major); the two diagonals below the subdiagonal are cleared first. A vector
// whose moduli add up to no more than negligible is not reflected.
// Source: Francis 1961; Golub & Van Loan, Matrix Computations.
using DoubleShiftSweepKernel = void(double* a, int n, int l, int nn, Shifts shifts, double negligible);

struct SweepKernels {
    DoubleShiftSweepKernel* doubleShiftSweep;
};

} // namespace trelvanix

#endif
