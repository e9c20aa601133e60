#include "math/bessel_i0.h"

#include <cstddef>

#include "math/exponential.h"

namespace trelvanix
{

BesselI0::BesselI0() : powerOfFour(), squaredFactorial()
{
    double factorial = 1.0;
    for (int k = 0; k < termCount; ++k) {
        const auto i = static_cast<std::size_t>(k);
        if (k > 1)
            factorial *= k;
        powerOfFour[i] = Pow(4.0, k);
        squaredFactorial[i] = Pow(factorial, 2.0);
    }
}

double BesselI0::operator()(double x) const
{
    // An addend below 2^-54 of a sum leaves it as it is. The terms rise to their largest and then fall, so
    // behind one that is smaller still nothing is left to add.
    constexpr double negligible = 0x1p-55;
    double sum = 0.0;
    for (int k = 0; k < termCount; ++k) {
        const auto i = static_cast<std::size_t>(k);
        // Three roundings in this order: the quotient by the product would round differently.
        const double term = Pow(x, 2 * k) / powerOfFour[i] / squaredFactorial[i];
        sum += term;
        if (term < negligible * sum)
            break;
    }
    return sum;
}

} // namespace trelvanix
