#include "fir/windows.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "common/constants.h"
#include "math/bessel_i0.h"
#include "math/exponential.h"
#include "math/trigonometric.h"

namespace trelvanix
{
namespace
{

// a0 - a1 cos(2 pi n / D) + a2 cos(4 pi n / D) - a3 cos(6 pi n / D)
struct FourTermCoefficients {
    double a0, a1, a2, a3;
};

constexpr FourTermCoefficients blackmanHarris = {0.35875, 0.48829, 0.14128, 0.01168};
constexpr FourTermCoefficients nuttall = {0.3635819, 0.4891775, 0.1365995, 0.0106411};

void FourTermWindow(const FourTermCoefficients& c, int N, double denominator, double* w)
{
    for (int i = 0; i < N; ++i) {
        const double n = i;
        w[i] = c.a0 - c.a1 * Cos(n * twoPi / denominator) + c.a2 * Cos(n * fourPi / denominator) -
               c.a3 * Cos(n * sixPi / denominator);
    }
}

} // namespace

void RectangleWindow(int N, double* w)
{
    std::fill_n(w, N, 1.0);
}

void HannWindow(const double* angles, int N, double* w)
{
    for (int n = 0; n < N; ++n)
        w[n] = 0.5 - 0.5 * Cos(angles[n]);
}

void HammingWindow(const double* angles, int N, double* w)
{
    for (int n = 0; n < N; ++n)
        w[n] = 0.54 - 0.46 * Cos(angles[n]);
}

void BlackmanWindow(const double* angles, int N, double* w)
{
    for (int n = 0; n < N; ++n)
        w[n] = 0.42 - 0.5 * Cos(angles[n]) + 0.08 * Cos(2.0 * angles[n]);
}

void FlattopWindow(const double* angles, int N, double* w)
{
    for (int n = 0; n < N; ++n) {
        const double x = angles[n];
        w[n] = 0.277263158 * Cos(2.0 * x) + (0.215578995 - 0.41663158 * Cos(x)) -
               0.083578947 * Cos(3.0 * x) + 0.006947368 * Cos(4.0 * x);
    }
}

void KaiserWindow(int N, double* w)
{
    constexpr double beta = 7.0;
    const BesselI0 bessel;
    const double normaliser = bessel(beta);
    const double D1 = N - 1;
    const auto argument = [=](double n) {
        const double u = 1.0 - (n + n) / D1;
        return std::sqrt(1.0 - Pow(u, 2.0)) * beta;
    };
    // Mirror images have nearly the same argument, and three in four of them the very same.
    for (int i = 0, mirror = N - 1; i <= mirror; ++i, --mirror) {
        const double x = argument(i);
        const double xMirror = argument(mirror);
        w[i] = bessel(x) / normaliser;
        w[mirror] = x == xMirror ? w[i] : bessel(xMirror) / normaliser;
    }
}

void GaussianWindow(int N, double* w)
{
    const double h = (N - 1.0) * 0.5;
    for (int n = 0, mirror = N - 1; n <= mirror; ++n, --mirror)
        w[n] = w[mirror] = Exp(Pow((n - h) * 2.5 / h, 2.0) * -0.5);
}

void TriangWindow(int N, double* w)
{
    // Odd lengths count in steps of 2 / (N + 1), even ones in odd multiples of 1 / N.
    const bool odd = N % 2 == 1;
    const double denominator = odd ? N + 1.0 : N;
    const std::int64_t middle = odd ? (std::int64_t{N} + 1) / 2 : N / 2;
    for (std::int64_t i = 1; i <= N; ++i) {
        const double rise = static_cast<double>(odd ? 2 * i : 2 * i - 1) / denominator;
        w[i - 1] = i <= middle ? rise : 2.0 - rise;
    }
}

void BartlettWindow(int N, double* w)
{
    const double D1 = N - 1;
    const int middle = (N - 1) / 2;
    for (int i = 0; i < N; ++i) {
        const double n = i;
        const double rise = 2.0 * n / D1;
        w[i] = i <= middle ? rise : 2.0 - rise;
    }
}

void BartlettHannWindow(int N, double* w)
{
    for (int n = 0; n < N; ++n) {
        const double t = n / (N - 1.0) - 0.5;
        w[n] = 0.38 * Cos(t * twoPi) + (0.62 - 0.48 * std::abs(t));
    }
}

void BlackmanHarrisSymmetricWindow(int N, double* w)
{
    FourTermWindow(blackmanHarris, N, N - 1, w);
}

void BlackmanHarrisPeriodicWindow(int N, double* w)
{
    FourTermWindow(blackmanHarris, N, N, w);
}

double ParzenSample(double offset, int N)
{
    const double r = offset / (N * 0.5);
    return offset <= (N - 1) * 0.25 ? 1.0 - Pow(r, 2.0) * 6.0 + Pow(r, 3.0) * 6.0
                                    : 2.0 * Pow(1.0 - r, 3.0);
}

void ParzenWindow(int N, double* w)
{
    for (int n = 0, mirror = N - 1; n <= mirror; ++n, --mirror)
        w[n] = w[mirror] = ParzenSample((mirror - n) * 0.5, N);
}

void NuttallSymmetricWindow(int N, double* w)
{
    FourTermWindow(nuttall, N, N - 1, w);
}

void NuttallPeriodicWindow(int N, double* w)
{
    FourTermWindow(nuttall, N, N, w);
}

} // namespace trelvanix
