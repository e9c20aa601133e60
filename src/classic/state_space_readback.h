#ifndef TRELVANIX_CLASSIC_STATE_SPACE_READBACK_H
#define TRELVANIX_CLASSIC_STATE_SPACE_READBACK_H

#include <vector>

#include "classic/state_space.h"
#include "common/complex_arithmetic.h"

namespace trelvanix
{

// Numerator and denominator of the same degree, highest power first.
struct TransferFunction {
    std::vector<double> num;
    std::vector<double> den;
};

struct ZerosPolesGain {
    std::vector<Complex> zeros;
    std::vector<Complex> poles;
    double gain;
};

// Coefficients of det(sI - M), M being n x n: the real monic polynomial of the eigenvalues (tolerance
// 1e-11, 60 sweeps an eigenvalue).
std::vector<double> CharPoly(std::vector<double> M, int n);

// The transfer function of a model: den = det(sI - A), num = det(sI - (A - B C)) + (D - 1) den.
TransferFunction StateSpaceToTf(const StateSpace& model);

// The zeros of a transfer function as Roots finds them, one for each state whatever the degree of the
// numerator. Roots takes the constant term to equal the leading coefficient, so they are the zeros of
// palindromic numerators, which digital filters with all zeros on the unit circle have (those of the
// type II lowpass for instance); of other numerators they are not.
std::vector<Complex> TfZeros(const TransferFunction& tf);

// The poles: CompanionRoots of the denominator.
std::vector<Complex> TfPoles(const TransferFunction& tf);

// den[0] times the first numerator coefficient whose modulus exceeds 0.0001, the last if none does.
// The fixed threshold lets rounding noise at the top of the numerator pass for zero; a true leading
// coefficient below it is passed over all the same.
double TfGain(const TransferFunction& tf);

// The three together.
ZerosPolesGain TfToZpk(const TransferFunction& tf);
ZerosPolesGain StateSpaceToZpk(const StateSpace& model);

} // namespace trelvanix

#endif
