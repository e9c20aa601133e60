#ifndef TRELVANIX_FIR_WINDOWS_H
#define TRELVANIX_FIR_WINDOWS_H

#include <cstdint>

#include "common/result_array.h"

namespace trelvanix
{

// The window codes of the exported designs.
enum class WindowType : std::uint32_t {
    Rectangle = 0,
    Hann = 1,
    Hamming = 2,
    Blackman = 3,
    Flattop = 4,
    Kaiser = 5,
    Gaussian = 6,
    Triang = 7,
    Bartlett = 8,
    BartlettHann = 9,
    BlackmanHarrisSymmetric = 10,
    BlackmanHarrisPeriodic = 11,
    Parzen = 12,
    NuttallSymmetric = 13,
    NuttallPeriodic = 14
};

// Throws std::invalid_argument with the list of windows unless windowType is one of the fifteen codes.
void CheckWindowType(int windowType);

// Window of N >= 2 samples as a new array.
//
//   windowType   one of the fifteen
//   angles       N angles x[n] = 2 pi n / (N - 1), read by Hann, Hamming, Blackman and Flattop
//
// The windows that divide by N - 1 are not-a-number for N = 1.
// Errors: std::bad_array_new_length for N < 0, std::bad_alloc.
ResultArray GenerateWindow(WindowType windowType, const double* angles, int N);

// The same, with the angles made here.
// Errors: std::length_error for N < 0, std::bad_alloc.
ResultArray CreateWindow(WindowType windowType, int N);

// The generators: each writes the N samples w[0] .. w[N - 1] of its window. Symmetric windows divide by
// N - 1, periodic ones by N. Source: Harris 1978; Nuttall 1981 for the Nuttall and Blackman-Harris
// coefficients; Kaiser 1974. None checks or throws anything.
void RectangleWindow(int N, double* w);
void HannWindow(const double* angles, int N, double* w);
void HammingWindow(const double* angles, int N, double* w);
void BlackmanWindow(const double* angles, int N, double* w);
void FlattopWindow(const double* angles, int N, double* w);
// Shape parameter beta = 7.
void KaiserWindow(int N, double* w);
// Width parameter alpha = 2.5: the ends are exp(-3.125).
void GaussianWindow(int N, double* w);
// A triangle that does not reach zero at its ends.
void TriangWindow(int N, double* w);
// A triangle whose ends are zero.
void BartlettWindow(int N, double* w);
void BartlettHannWindow(int N, double* w);
void BlackmanHarrisSymmetricWindow(int N, double* w);
void BlackmanHarrisPeriodicWindow(int N, double* w);
// For even N the last sample is 0 and the rest is a window of N - 1 samples.
void ParzenWindow(int N, double* w);
void NuttallSymmetricWindow(int N, double* w);
void NuttallPeriodicWindow(int N, double* w);

// Modified Bessel function of the first kind and order zero: the first 25 terms of its power series, in
// increasing order (Abramowitz & Stegun 1964, 9.6.12). For |x| <= 7 what is left out is far below one
// rounding.
double BesselI0(double x);

// k! as a double: exact up to 22!.
double RealFactorial(unsigned int k);

} // namespace trelvanix

#endif
