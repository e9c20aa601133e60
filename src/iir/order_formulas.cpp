#include "iir/order_formulas.h"

#include <cmath>
#include <vector>

#include "math/elliptic_functions.h"
#include "math/exponential.h"

namespace trelvanix
{

double PowerRatioLessOne(double decibels)
{
    return Pow(10.0, 0.1 * decibels) - 1.0;
}

double ButterworthOrder(double selectivity, double passRipple, double stopAttenuation)
{
    const double ratio = PowerRatioLessOne(stopAttenuation) / PowerRatioLessOne(passRipple);
    return Log10(ratio) / (2.0 * Log10(selectivity));
}

double ChebyshevOrder(double selectivity, double passRipple, double stopAttenuation)
{
    const double ratio = PowerRatioLessOne(stopAttenuation) / PowerRatioLessOne(passRipple);
    return Acosh(std::sqrt(ratio)) / Acosh(selectivity);
}

double EllipticOrder(double selectivity, double passRipple, double stopAttenuation)
{
    const double k = 1.0 / selectivity;
    const double k1 =
        std::sqrt(PowerRatioLessOne(passRipple)) / std::sqrt(PowerRatioLessOne(stopAttenuation));
    const double m = Pow(k, 2.0);
    const double m1 = Pow(k1, 2.0);
    const std::vector<double> K = EllipticKByAgm({m, 1.0 - m, m1, 1.0 - m1});
    return K[0] * K[3] / (K[1] * K[2]);
}

} // namespace trelvanix
