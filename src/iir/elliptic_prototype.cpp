#include "iir/elliptic_prototype.h"

#include <cmath>
#include <vector>

#include "linalg/polynomial.h"
#include "math/elliptic_functions.h"

namespace trelvanix
{
namespace
{

Complex TimesJ(Complex w)
{
    return {-w.imag(), w.real()};
}

std::vector<Complex> WithConjugates(const std::vector<Complex>& values)
{
    std::vector<Complex> both;
    both.reserve(2 * values.size() + 1);
    for (const Complex value : values) {
        both.push_back(value);
        both.push_back(std::conj(value));
    }
    return both;
}

std::vector<Complex> ImaginaryZeros(const std::vector<double>& u, double k)
{
    std::vector<Complex> zeros;
    zeros.reserve(u.size());
    for (const double zeta : JacobiCd(u, k))
        zeros.emplace_back(0.0 / (k * zeta), 1.0 / (k * zeta));
    return WithConjugates(zeros);
}

// The poles in conjugate pairs lie where cd takes the arguments u moved by nu0 off the real axis.
std::vector<Complex> ComplexPoles(const std::vector<double>& u, Complex nu0, double k)
{
    std::vector<Complex> arguments;
    arguments.reserve(u.size());
    for (const double argument : u)
        arguments.emplace_back(argument + nu0.imag(), -nu0.real());
    std::vector<Complex> poles = JacobiCdComplex(arguments, k);
    for (Complex& pole : poles)
        pole = TimesJ(pole);
    return WithConjugates(poles);
}

} // namespace

AnalogPrototype EllipticPrototype(int order, double k, Complex nu0)
{
    std::vector<double> u;
    for (int i = 1; i <= order / 2; ++i)
        u.push_back((2.0 * i - 1.0) / order);
    AnalogPrototype prototype = {ImaginaryZeros(u, k), ComplexPoles(u, nu0, k), 1.0};
    if (order % 2 != 0)
        prototype.poles.push_back(TimesJ(JacobiSnComplex(TimesJ(nu0), k)));
    return prototype;
}

double EllipticGain(const AnalogPrototype& prototype, double H0)
{
    const auto itself = [](Complex value) { return value; };
    const Complex quotient =
        Divide(ProductOver(prototype.poles, itself), ProductOver(prototype.zeros, itself));
    return std::fabs(quotient.real() * H0);
}

} // namespace trelvanix
