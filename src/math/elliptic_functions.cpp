#include "math/elliptic_functions.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

#include "common/constants.h"
#include "math/complex_functions.h"
#include "math/exponential.h"
#include "math/trigonometric.h"

// Squares of real numbers are taken with the power function throughout: it differs from the product in
// the last bit now and then.
namespace trelvanix
{
namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();

double ComplementaryModulus(double k)
{
    return std::sqrt(1.0 - Pow(k, 2.0));
}

double IntegralByLanden(double k)
{
    double product = 1.0;
    for (const double modulus : LandenModuli(k))
        product *= 1.0 + modulus;
    return halfPi * product;
}

double IntegralByAgm(double m)
{
    if (m == 1.0)
        return infinity;
    double a = 1.0;
    double b = std::sqrt(1.0 - m);
    // The weighted difference falls below the bound within ten steps for m in (0, 1). Where a and b are
    // huge (m far below 0) their last bits alone keep it above; they have met long before the limit.
    constexpr int limit = 64;
    for (int i = 1; i <= limit; ++i) {
        const double geometric = std::sqrt(a * b);
        const double weighted = Pow((a - b) / 2.0, 2.0) * Pow(2.0, i);
        a = (a + b) / 2.0;
        b = geometric;
        // Written so that not-a-number ends the mean too.
        if (!(weighted > landenTolerance))
            break;
    }
    return pi / (2.0 * a);
}

// From the circular function w up to the elliptic one: the descending sequence backwards.
double Ascend(double w, const std::vector<double>& moduli)
{
    std::for_each(moduli.rbegin(), moduli.rend(),
                  [&w](double modulus) { w = (1.0 + modulus) * w / (1.0 + modulus * Pow(w, 2.0)); });
    return w;
}

Complex Ascend(Complex w, const std::vector<double>& moduli)
{
    std::for_each(moduli.rbegin(), moduli.rend(),
                  [&w](double modulus) { w = Divide((1.0 + modulus) * w, 1.0 + modulus * Square(w)); });
    return w;
}

// The elliptic function of each argument whose circular one is given.
template <class Value, class Circular>
std::vector<Value> AscendAll(const std::vector<Value>& u, double k, Circular circular)
{
    const std::vector<double> moduli = LandenModuli(k);
    std::vector<Value> values;
    values.reserve(u.size());
    for (const Value argument : u)
        values.push_back(Ascend(circular(argument), moduli));
    return values;
}

} // namespace

double SymmetricRemainder(double x, double y)
{
    const double z = std::fmod(x, y);
    if (z > y / 2.0)
        return z - y;
    if (z < -y / 2.0)
        return z + y;
    return z;
}

std::vector<double> LandenModuli(double k)
{
    std::vector<double> moduli;
    double modulus = k;
    bool descends = true;
    while (modulus > landenTolerance && descends) {
        const double previous = modulus;
        modulus = Pow(previous / (1.0 + ComplementaryModulus(previous)), 2.0);
        moduli.push_back(modulus);
        descends = modulus < previous;
    }
    return moduli;
}

CompleteIntegrals EllipticK(double k)
{
    constexpr double kmin = 1e-6;
    const double kmax = ComplementaryModulus(kmin);
    if (k == 0.0)
        return {halfPi, infinity};

    const double kp = ComplementaryModulus(k);
    CompleteIntegrals integrals = {};
    if (kp == 0.0) {
        integrals.K = infinity;
    } else if (k > kmax) {
        const double L = Log(kp * 0.25);
        integrals.K = Pow(kp, 2.0) * (-L - 1.0) * 0.25 + -L;
    } else {
        integrals.K = IntegralByLanden(k);
    }
    if (k < kmin) {
        const double L = Log(k * 0.25);
        integrals.Kprime = (-L - 1.0) * Pow(k, 2.0) * 0.25 + -L;
    } else {
        integrals.Kprime = IntegralByLanden(kp);
    }
    return integrals;
}

std::vector<double> EllipticKByAgm(const std::vector<double>& m)
{
    std::vector<double> integrals(m.size());
    std::transform(m.begin(), m.end(), integrals.begin(), IntegralByAgm);
    return integrals;
}

std::vector<double> JacobiCd(const std::vector<double>& u, double k)
{
    return AscendAll(u, k, [](double argument) { return Cos(argument * pi * 0.5); });
}

std::vector<double> JacobiSn(const std::vector<double>& u, double k)
{
    return AscendAll(u, k, [](double argument) { return Sin(argument * pi * 0.5); });
}

std::vector<Complex> JacobiCdComplex(const std::vector<Complex>& u, double k)
{
    return AscendAll(u, k, [](Complex argument) { return Cosine(argument * halfPi); });
}

Complex JacobiSnComplex(Complex u, double k)
{
    return Ascend(Sine(u * halfPi), LandenModuli(k));
}

Complex InverseCdComplex(Complex w, double k)
{
    constexpr double twoOverPi = 0.6366197723675814;
    double previous = k;
    for (const double modulus : LandenModuli(k)) {
        const Complex root = SquareRoot(1.0 - Pow(previous, 2.0) * Square(w));
        w = Divide(w, 1.0 + root) * 2.0 / (1.0 + modulus);
        previous = modulus;
    }
    const Complex u = twoOverPi * ArcCosine(w);
    const auto [K, Kprime] = EllipticK(k);
    const double R = Kprime / K;
    return {SymmetricRemainder(u.real(), 4.0), SymmetricRemainder(u.imag(), 2.0 * R)};
}

Complex InverseSnComplex(Complex w, double k)
{
    const Complex u = InverseCdComplex(w, k);
    return {1.0 - u.real(), 0.0 - u.imag()};
}

double EllipticDegree(int N, double k1)
{
    const double k1p = ComplementaryModulus(k1);
    std::vector<double> u;
    for (int i = 1; i <= N / 2; ++i)
        u.push_back((2.0 * i - 1.0) / N);
    double product = 1.0;
    for (const double sn : JacobiSn(u, k1p))
        product *= sn;
    const double kp = Pow(k1p, static_cast<double>(N)) * Pow(product, 4.0);
    return ComplementaryModulus(kp);
}

} // namespace trelvanix
