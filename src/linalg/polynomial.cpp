#include "linalg/polynomial.h"

#include "common/work_array.h"

namespace trelvanix
{

std::vector<Complex> PolyFromRoots(const Complex* roots, int count)
{
    auto coefficients = NewWorkArray<Complex>(std::int64_t{count} + 1);
    Complex* c = coefficients.data();
    c[0] = 1.0;
    for (int k = 0; k < count; ++k)
        for (int j = k + 1; j >= 1; --j)
            c[j] -= Multiply(roots[k], c[j - 1]);
    return coefficients;
}

void WriteRealPolynomial(double gain, const std::vector<Complex>& roots, double* output)
{
    if (output == nullptr)
        return;
    for (const Complex coefficient : PolyFromRoots(roots.data(), static_cast<int>(roots.size())))
        *output++ = gain * coefficient.real();
}

} // namespace trelvanix
