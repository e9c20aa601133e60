#include "fir/windows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>
#include <vector>

#include "common/constants.h"
#include "common/growable_array.h"

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
        w[i] = c.a0 - c.a1 * std::cos(n * twoPi / denominator) +
               c.a2 * std::cos(n * fourPi / denominator) - c.a3 * std::cos(n * sixPi / denominator);
    }
}

// Squares and cubes go through the power function, which rounds differently from repeated
// multiplication; the build keeps the compiler from replacing the call.
double Power(double base, double exponent)
{
    return std::pow(base, exponent);
}

constexpr int besselTermCount = 25;

// What the terms of the series for I0 are divided by: 4^k, then (k!)^2. A window needs them once.
struct BesselDivisors {
    std::array<double, besselTermCount> powerOfFour, squaredFactorial;

    BesselDivisors()
    {
        for (int k = 0; k < besselTermCount; ++k) {
            const auto i = static_cast<std::size_t>(k);
            powerOfFour[i] = Power(4.0, k);
            squaredFactorial[i] = Power(RealFactorial(static_cast<unsigned int>(k)), 2.0);
        }
    }
};

double BesselI0(double x, const BesselDivisors& divisors)
{
    // An addend below 2^-54 of a sum leaves it as it is. The terms rise to their largest and then fall, so
    // behind one that is smaller still nothing is left to add.
    constexpr double negligible = 0x1p-55;
    double sum = 0.0;
    for (int k = 0; k < besselTermCount; ++k) {
        const auto i = static_cast<std::size_t>(k);
        const double term = Power(x, 2 * k) / divisors.powerOfFour[i] / divisors.squaredFactorial[i];
        sum += term;
        if (term < negligible * sum)
            break;
    }
    return sum;
}

} // namespace

double RealFactorial(unsigned int k)
{
    double factorial = 1.0;
    for (unsigned int i = 2; i <= k; ++i)
        factorial *= i;
    return factorial;
}

double BesselI0(double x)
{
    return BesselI0(x, BesselDivisors());
}

void RectangleWindow(int N, double* w)
{
    std::fill_n(w, N, 1.0);
}

void HannWindow(const double* angles, int N, double* w)
{
    for (int n = 0; n < N; ++n)
        w[n] = 0.5 - 0.5 * std::cos(angles[n]);
}

void HammingWindow(const double* angles, int N, double* w)
{
    for (int n = 0; n < N; ++n)
        w[n] = 0.54 - 0.46 * std::cos(angles[n]);
}

void BlackmanWindow(const double* angles, int N, double* w)
{
    for (int n = 0; n < N; ++n)
        w[n] = 0.42 - 0.5 * std::cos(angles[n]) + 0.08 * std::cos(2.0 * angles[n]);
}

void FlattopWindow(const double* angles, int N, double* w)
{
    for (int n = 0; n < N; ++n) {
        const double x = angles[n];
        w[n] = 0.277263158 * std::cos(2.0 * x) + (0.215578995 - 0.41663158 * std::cos(x)) -
               0.083578947 * std::cos(3.0 * x) + 0.006947368 * std::cos(4.0 * x);
    }
}

void KaiserWindow(int N, double* w)
{
    constexpr double beta = 7.0;
    const BesselDivisors divisors;
    const double normaliser = BesselI0(beta, divisors);
    const double D1 = N - 1;
    const auto argument = [=](double n) {
        const double u = 1.0 - (n + n) / D1;
        return std::sqrt(1.0 - Power(u, 2.0)) * beta;
    };
    // Mirror images have nearly the same argument, and three in four of them the very same.
    for (int i = 0, mirror = N - 1; i <= mirror; ++i, --mirror) {
        const double x = argument(i);
        const double xMirror = argument(mirror);
        w[i] = BesselI0(x, divisors) / normaliser;
        w[mirror] = x == xMirror ? w[i] : BesselI0(xMirror, divisors) / normaliser;
    }
}

void GaussianWindow(int N, double* w)
{
    const double h = (N - 1.0) * 0.5;
    for (int n = 0, mirror = N - 1; n <= mirror; ++n, --mirror)
        w[n] = w[mirror] = std::exp(Power((n - h) * 2.5 / h, 2.0) * -0.5);
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
        w[n] = 0.38 * std::cos(t * twoPi) + (0.62 - 0.48 * std::abs(t));
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

void ParzenWindow(int N, double* w)
{
    const int h = (N - 1) / 2;
    const int q = (N - 1) / 4;
    const double D = N * 0.5;
    for (int m = 0; m <= h; ++m) {
        const double r = m / D;
        w[h - m] = w[h + m] =
            m <= q ? 1.0 - Power(r, 2.0) * 6.0 + Power(r, 3.0) * 6.0 : 2.0 * Power(1.0 - r, 3.0);
    }
    // The offsets -h .. h fill an odd number of samples.
    if (N % 2 == 0)
        w[N - 1] = 0.0;
}

void NuttallSymmetricWindow(int N, double* w)
{
    FourTermWindow(nuttall, N, N - 1, w);
}

void NuttallPeriodicWindow(int N, double* w)
{
    FourTermWindow(nuttall, N, N, w);
}

void CheckWindowType(int windowType)
{
    if (static_cast<std::uint32_t>(windowType) > 14)
        throw std::invalid_argument(
            "windowType should be '0-14'.(Rectangle 0,Hann 1,Hamming 2,Blackman 3,Flattop 4,Kaiser 5,"
            "Gaussian 6,Triang 7,Bartlett 8,Bartlett-Hann 9,Blackman-Harris(Symmetric) 10,"
            "Blackman-Harris(Periodic) 11,Parzen 12,Nuttall(Symmetric) 13,Nuttall(Periodic) 14)");
}

ResultArray GenerateWindow(WindowType windowType, const double* angles, int N)
{
    ResultArray window = NewResultArray(N);
    double* w = window.get();
    switch (windowType) {
    case WindowType::Rectangle:
        RectangleWindow(N, w);
        break;
    case WindowType::Hann:
        HannWindow(angles, N, w);
        break;
    case WindowType::Hamming:
        HammingWindow(angles, N, w);
        break;
    case WindowType::Blackman:
        BlackmanWindow(angles, N, w);
        break;
    case WindowType::Flattop:
        FlattopWindow(angles, N, w);
        break;
    case WindowType::Kaiser:
        KaiserWindow(N, w);
        break;
    case WindowType::Gaussian:
        GaussianWindow(N, w);
        break;
    case WindowType::Triang:
        TriangWindow(N, w);
        break;
    case WindowType::Bartlett:
        BartlettWindow(N, w);
        break;
    case WindowType::BartlettHann:
        BartlettHannWindow(N, w);
        break;
    case WindowType::BlackmanHarrisSymmetric:
        BlackmanHarrisSymmetricWindow(N, w);
        break;
    case WindowType::BlackmanHarrisPeriodic:
        BlackmanHarrisPeriodicWindow(N, w);
        break;
    case WindowType::Parzen:
        ParzenWindow(N, w);
        break;
    case WindowType::NuttallSymmetric:
        NuttallSymmetricWindow(N, w);
        break;
    case WindowType::NuttallPeriodic:
        NuttallPeriodicWindow(N, w);
        break;
    }
    return window;
}

ResultArray CreateWindow(WindowType windowType, int N)
{
    auto angles = NewGrowableArray<double>(N);
    for (int n = 0; n < N; ++n)
        angles.data()[n] = n * twoPi / (N - 1);
    return GenerateWindow(windowType, angles.data(), N);
}

} // namespace trelvanix
