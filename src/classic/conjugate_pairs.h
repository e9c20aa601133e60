#ifndef TRELVANIX_CLASSIC_CONJUGATE_PAIRS_H
#define TRELVANIX_CLASSIC_CONJUGATE_PAIRS_H

#include <vector>

#include "common/complex_arithmetic.h"

namespace trelvanix
{

// Sorts poles or zeros in place so that conjugates are neighbours and real values stand at the end.
//
// The sort is by ascending real part, then descending modulus of the imaginary part, then negative
// imaginary part first, real and imaginary parts being equal within 2.2204e-16. After it, every real
// value (imaginary part below that tolerance) changes places with the next value that is complex, or
// whose real part exceeds its modulus, or that equals it within the tolerance and is not positive.
// The order of the sections of every designed filter follows from this rule, so it is kept as it is,
// uneven tests included. Numbers are not checked; not-a-number counts as complex and equal to all.
void PairConjugates(std::vector<Complex>& values);

} // namespace trelvanix

#endif
