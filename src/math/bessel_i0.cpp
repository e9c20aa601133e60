#include "math/bessel_i0.h"

#include <cmath>
#include <cstddef>

#include "math/exponential.h"
#include "math/pair.h"
#include "math/scaled_rounding.h"

namespace trelvanix
{
namespace
{

// The even powers of x, x^0, x^2, x^4, ..., each the double nearest to it: a running product of pairs is nearly
// always close enough to tell which that is.
class EvenPowers
{
public:
    explicit EvenPowers(double base)
        : x(base), inRange(std::fabs(base) >= 0x1p-15 && std::fabs(base) <= 0x1p6),
          square(inRange ? TwoProduct(base, base) : Pair{})
    {
    }

    double Next()
    {
        // A product of pairs adds 7 u^2, u = 2^-53, to the relative error; 25 powers stay within the range of pairs.
        const int n = exponent;
        exponent += 2;
        if (inRange) {
            const Pair value = power;
            power = power * square;
            if (const auto rounded = Round(value, (4 * n + 1) * 0x1p-106))
                return *rounded;
        }
        return Pow(x, n);
    }

private:
    double x;
    bool inRange;
    Pair square;
    Pair power = {1.0, 0.0};
    int exponent = 0;
};

} // namespace

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
    EvenPowers powers(x);
    double sum = 0.0;
    for (int k = 0; k < termCount; ++k) {
        const auto i = static_cast<std::size_t>(k);
        // Three roundings in this order: the quotient by the product would round differently.
        const double term = powers.Next() / powerOfFour[i] / squaredFactorial[i];
        sum += term;
        if (term < negligible * sum)
            break;
    }
    return sum;
}

} // namespace trelvanix
