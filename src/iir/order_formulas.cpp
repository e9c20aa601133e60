#include "iir/order_formulas.h"

#include <cmath>
#include <vector>

#include "math/elliptic_functions.h"

namespace trelvanix
{

double PowerRatioLessOne(double decibels)
{
    return std::pow(10.0, 0.1 * decibels) - 1.0;
}

double ButterworthOrder(double selectivity, double passRipple, double stopAttenuation)
{
    const double ratio = PowerRatioLessOne(stopAttenuation) / PowerRatioLessOne(passRipple);
    return std::log10(ratio) / (2.0 * std::log10(selectivity));
}

double ChebyshevOrder(double selectivity, double passRipple, double stopAttenuation)
{
    const double ratio = PowerRatioLessOne(stopAttenuation) / PowerRatioLessOne(passRipple);
    return std::acosh(std::sqrt(ratio)) / std::acosh(selectivity);
}

double EllipticOrder(double selectivity, double passRipple, double stopAttenuation)
{
    const double k = 1.0 / selectivity;
    const double k1 =
        std::sqrt(PowerRatioLessOne(passRipple)) / std::sqrt(PowerRatioLessOne(stopAttenuation));
    const double m = std::pow(k, 2.0);
    const double m1 = std::pow(k1, 2.0);
    const std::vector<double> K = EllipticKByAgm({m, 1.0 - m, m1, 1.0 - m1});
    return K[0] * K[3] / (K[1] * K[2]);
}

} // namespace trelvanix
