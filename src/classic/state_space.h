#ifndef TRELVANIX_CLASSIC_STATE_SPACE_H
#define TRELVANIX_CLASSIC_STATE_SPACE_H

#include <vector>

#include "common/complex_arithmetic.h"
#include "iir/analog_prototype.h"

namespace trelvanix
{

// x' = A x + B u,  y = C x + D u  with one input and one output; A is order x order, row-major.
struct StateSpace {
    int order;
    std::vector<double> A;
    std::vector<double> B;
    std::vector<double> C;
    double D;
};

// The state-space model of a prototype: a series connection of sections of first and second order,
// real pole first, then pairs of zeros with pairs of poles, then the remaining pairs of poles. Zeros
// and poles are paired in place (PairConjugates). There must not be more zeros than poles; numbers are
// not checked. Of values without a conjugate partner the real part counts, of pairs the real parts of
// the polynomial.
// Source: series realisation with balanced second-order sections, Kailath, Linear Systems, 1980.
StateSpace ZpToStateSpace(AnalogPrototype& prototype);

// The eigenvalues of the state matrix, in the order in which they are found (tolerance 1e-30, 60
// sweeps an eigenvalue); the model keeps its matrix.
std::vector<Complex> StatePoles(const StateSpace& model);

} // namespace trelvanix

#endif
