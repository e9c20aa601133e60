#include "fir/order_estimate.h"

#include <cmath>

#include "math/exponential.h"

namespace trelvanix
{

double LowpassOrderEstimate(double fa, double fb, double delta1, double delta2)
{
    const double L1 = Log10(delta1);
    const double L2 = Log10(delta2);
    const double D = (-0.4278 - 0.4761 * L2) + L1 * (-0.5941 + 0.07114 * L2) +
                     Pow(L1, 2.0) * (-0.00266 + 0.005309 * L2);
    const double fK = 11.01217 + 0.51244 * (L1 - L2);
    const double df = std::abs(fb - fa);
    return D / df - fK * df + 1.0;
}

} // namespace trelvanix
