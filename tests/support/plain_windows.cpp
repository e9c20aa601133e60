#include "support/plain_windows.h"

#include <cmath>
#include <cstddef>
#include <cstdlib>

#include "math/exponential.h"
#include "math/trigonometric.h"

namespace trelvanix::testing
{
namespace
{

constexpr double pi = 3.141592653589793;

// A call with two doubles that the compiler has to leave a call.
double Power(double base, double exponent)
{
    return Pow(base, exponent);
}

double Factorial(int k)
{
    double factorial = 1.0;
    for (int i = 2; i <= k; ++i)
        factorial *= i;
    return factorial;
}

double ImpulseAt(double t, double omega1, double omega2, FilterType filterType)
{
    switch (filterType) {
    case FilterType::HighPass:
        return t == 0.0 ? 1.0 - omega1 / pi : (Sin(t * pi) - Sin(t * omega1)) / (t * pi);
    case FilterType::BandPass:
        return t == 0.0 ? (omega2 - omega1) / pi : (Sin(t * omega2) - Sin(t * omega1)) / (t * pi);
    case FilterType::BandStop:
        return t == 0.0 ? 1.0 - (omega2 - omega1) / pi
                        : (Sin(t * pi) - Sin(t * omega2) + Sin(t * omega1)) / (t * pi);
    default:
        return t == 0.0 ? omega1 / pi : Sin(t * omega1) / (t * pi);
    }
}

} // namespace

double PlainBesselI0(double x)
{
    double sum = 0.0;
    for (int k = 0; k < 25; ++k)
        sum += Power(x, 2.0 * k) / Power(4.0, k) / Power(Factorial(k), 2.0);
    return sum;
}

std::vector<double> PlainKaiserWindow(int N)
{
    std::vector<double> w;
    w.reserve(static_cast<std::size_t>(N));
    for (int i = 0; i < N; ++i) {
        const double n = i;
        const double u = 1.0 - (n + n) / (N - 1);
        w.push_back(PlainBesselI0(std::sqrt(1.0 - Power(u, 2.0)) * 7.0) / PlainBesselI0(7.0));
    }
    return w;
}

std::vector<double> PlainGaussianWindow(int N)
{
    std::vector<double> w;
    w.reserve(static_cast<std::size_t>(N));
    const double h = (N - 1.0) * 0.5;
    for (int n = 0; n < N; ++n)
        w.push_back(Exp(Power((n - h) * 2.5 / h, 2.0) * -0.5));
    return w;
}

std::vector<double> PlainParzenWindow(int N)
{
    std::vector<double> w;
    const int h = (N - 1) / 2;
    const int q = (N - 1) / 4;
    for (int m = -h; m <= h; ++m) {
        const double r = std::abs(m) / (N * 0.5);
        w.push_back(std::abs(m) <= q ? 1.0 - Power(r, 2.0) * 6.0 + Power(r, 3.0) * 6.0
                                     : 2.0 * Power(1.0 - r, 3.0));
    }
    w.resize(static_cast<std::size_t>(N));
    return w;
}

std::vector<double> PlainImpulseResponse(int N, double omega1, double omega2, FilterType filterType)
{
    std::vector<double> h;
    h.reserve(static_cast<std::size_t>(N));
    for (int n = 0; n < N; ++n)
        h.push_back(ImpulseAt(n - (N - 1) * 0.5, omega1, omega2, filterType));
    return h;
}

} // namespace trelvanix::testing
