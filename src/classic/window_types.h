#ifndef TRELVANIX_CLASSIC_WINDOW_TYPES_H
#define TRELVANIX_CLASSIC_WINDOW_TYPES_H

#include <cstdint>

#include "classic/result_array.h"

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
//   angles   N angles x[n] = 2 pi n / (N - 1), read by Hann, Hamming, Blackman and Flattop
//
// Returns null for a windowType that is none of the fifteen. The windows that divide by N - 1 are
// not-a-number for N = 1.
// Errors: std::bad_array_new_length for N < 0, std::bad_alloc.
ResultArray GenerateWindow(WindowType windowType, const double* angles, int N);

// The same, with the angles made here.
// Errors: std::length_error for N < 0, std::bad_alloc.
ResultArray CreateWindow(WindowType windowType, int N);

} // namespace trelvanix

#endif
