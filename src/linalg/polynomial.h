#ifndef TRELVANIX_LINALG_POLYNOMIAL_H
#define TRELVANIX_LINALG_POLYNOMIAL_H

#include <vector>

#include "common/complex_arithmetic.h"

namespace trelvanix
{

// The count + 1 coefficients, highest power first, of the monic polynomial with the given roots,
// multiplied up in array order.
std::vector<Complex> PolyFromRoots(const Complex* roots, int count);

// The product of factorOf(value) over all values in array order, starting from 1 + 0j.
template <class Factor>
Complex ProductOver(const std::vector<Complex>& values, Factor factorOf)
{
    Complex product = 1.0;
    for (const Complex value : values)
        product = Multiply(product, factorOf(value));
    return product;
}

// gain times the real parts of the coefficients of the monic polynomial with the given roots, into
// roots.size() + 1 doubles; writes nothing when the output is null.
void WriteRealPolynomial(double gain, const std::vector<Complex>& roots, double* output);

} // namespace trelvanix

#endif
