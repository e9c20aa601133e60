#include "iir/elliptic.h"

#include <cmath>
#include <vector>

#include "iir/bilinear.h"
#include "iir/conjugate_pairs.h"
#include "iir/edge_preparation.h"
#include "iir/elliptic_functions.h"
#include "iir/frequency_transformations.h"
#include "iir/polynomial.h"
#include "iir/state_space_readback.h"

namespace trelvanix
{
namespace
{

Complex TimesJ(Complex w)
{
    return {-w.imag(), w.real()};
}

// Each value followed by its conjugate, then paired as sections take them.
std::vector<Complex> WithConjugates(const std::vector<Complex>& values)
{
    std::vector<Complex> both;
    both.reserve(2 * values.size() + 1);
    for (const Complex value : values) {
        both.push_back(value);
        both.push_back(std::conj(value));
    }
    PairConjugates(both);
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

AnalogPrototype EllipticPrototype(int order, double rp, double rs)
{
    const bool odd = order % 2 != 0;
    const double Gp = std::pow(10.0, rp * -1.0 / 20.0);
    const double ep = std::sqrt(std::pow(10.0, rp / 10.0) - 1.0);
    const double es = std::sqrt(std::pow(10.0, rs / 10.0) - 1.0);
    const double k1 = ep / es;
    const double k = EllipticDegree(order, k1);

    std::vector<double> u;
    for (int i = 1; i <= order / 2; ++i)
        u.push_back((2.0 * i - 1.0) / order);
    const Complex v = InverseSnComplex({0.0 / ep, 1.0 / ep}, k1);
    const Complex nu0 = Divide({v.imag(), -v.real()}, static_cast<double>(order));

    AnalogPrototype prototype = {ImaginaryZeros(u, k), ComplexPoles(u, nu0, k), 1.0};
    if (odd)
        prototype.poles.push_back(TimesJ(JacobiSnComplex(TimesJ(nu0), k)));

    const auto itself = [](Complex value) { return value; };
    const Complex quotient =
        Divide(ProductOver(prototype.poles, itself), ProductOver(prototype.zeros, itself));
    const double H0 = odd ? 1.0 : Gp;
    prototype.gain = std::fabs(quotient.real() * H0);
    return prototype;
}

void Elliptic(int order, double rp, double rs, double* wn, std::uint32_t filterType, int analog,
              double* a, double* b)
{
    const auto type = static_cast<FilterType>(filterType);
    CheckOrder(order, type);
    const PreparedEdges edges = PrepareEdges(wn, type, analog != 0);
    AnalogPrototype prototype = EllipticPrototype(order, rp, rs);
    StateSpace model = ZpToStateSpace(prototype);
    TransformLowPass(model, type, edges);
    if (analog == 0)
        BilinearSs(model, 2.0);
    const auto [zeros, poles, gain] = StateSpaceToZpk(model);
    WriteRealPolynomial(1.0, poles, a);
    WriteRealPolynomial(gain, zeros, b);
}

} // namespace trelvanix
