#include "classic/elliptic_degree.h"

#include <cmath>
#include <limits>

#include "common/constants.h"
#include "math/elliptic_functions.h"
#include "math/exponential.h"

namespace trelvanix
{

double SelectivityModulus(int N, double k1)
{
    return k1 < 1e-6 ? SelectivityByNome(N, k1) : EllipticDegree(N, k1);
}

double SelectivityByNome(int N, double k1)
{
    if (k1 == 0.0)
        return std::numeric_limits<double>::quiet_NaN();
    const auto [K, Kprime] = EllipticK(k1);
    const double q = Pow(Exp(-pi * Kprime / K), static_cast<double>(N));
    double A = 0.0;
    double B = 0.0;
    for (int m = 1; m <= 7; ++m) {
        A += Pow(q, m * (m + 1.0));
        B += Pow(q, m * static_cast<double>(m));
    }
    return 4.0 * std::sqrt(q) * (1.0 + A) / Pow(1.0 + 2.0 * B, 2.0);
}

} // namespace trelvanix
