#include "math/wide_exponential.h"

#include <cmath>
#include <cstdint>

namespace trelvanix
{
namespace
{

// Where a number with so many limbs ends: what is smaller doesn't count beside 1.
std::int64_t LastExponent(int limbs)
{
    return -32 * std::int64_t{limbs};
}

// Sum of z + z^3 / 3 + z^5 / 5 + ... = atanh(z), until the terms no longer count.
WideNumber AtanhSeries(const WideNumber& z)
{
    if (IsZero(z))
        return z;
    const WideNumber square = Multiply(z, z);
    WideNumber power = z;
    WideNumber sum = z;
    for (std::uint32_t n = 3; power.exponent > z.exponent + LastExponent(z.limbs); n += 2) {
        power = Multiply(power, square);
        sum = Add(sum, Divide(power, n));
    }
    return sum;
}

// atanh(1 / n) for n^2 < 2^32.
WideNumber AtanhOfReciprocal(std::uint32_t n, int limbs)
{
    WideNumber power = Divide(ToWide(1.0, limbs), n);
    WideNumber sum = power;
    for (std::uint32_t k = 3; power.exponent > LastExponent(limbs); k += 2) {
        power = Divide(power, n * n);
        sum = Add(sum, Divide(power, k));
    }
    return sum;
}

// From 2 = (27/25)^9 (2400/2401) (4375/4374)^4, each logarithm as log((n + 1) / (n - 1)), which is
// 2 atanh(1 / n).
WideNumber WideLn2(int limbs)
{
    const WideNumber first = Multiply(AtanhOfReciprocal(26, limbs), 18U);
    const WideNumber second = Multiply(AtanhOfReciprocal(4801, limbs), 2U);
    const WideNumber third = Multiply(AtanhOfReciprocal(8749, limbs), 8U);
    return Add(Subtract(first, second), third);
}

} // namespace

WideNumber ToWide(Pair x, int limbs)
{
    return Add(ToWide(x.high, limbs), ToWide(x.low, limbs));
}

// x = k log(2) + r; the series of e^(r / 2^16), squared 16 times. That multiplies the relative error of
// a few ulps by 2^16, and k r keeps eleven bits before the point: one limb covers both.
WideNumber WideExp(const WideNumber& x, int limbs)
{
    constexpr int halvings = 16;
    if (IsZero(x))
        return ToWide(1.0, limbs);
    const int working = limbs + 1;
    const double k = std::rint(ToDouble(x) / 0.6931471805599453);
    const WideNumber multiple = Multiply(WideLn2(working), ToWide(k, working));
    const WideNumber r = Scale(Subtract(x, multiple), -halvings);

    WideNumber sum = ToWide(1.0, working);
    WideNumber term = sum;
    for (std::uint32_t n = 1; !IsZero(term) && term.exponent > LastExponent(working); ++n) {
        term = Divide(Multiply(term, r), n);
        sum = Add(sum, term);
    }
    for (int i = 0; i < halvings; ++i)
        sum = Multiply(sum, sum);
    return Scale(sum, static_cast<std::int64_t>(k));
}

// x = 2^e m with m in about [0.7, 1.4]; log(m) = 2 atanh((m - 1) / (m + 1)), which cannot cancel
// against e log(2).
WideNumber WideLog(const WideNumber& x, int limbs)
{
    const int working = limbs + 1;
    const WideNumber one = ToWide(1.0, working);
    WideNumber m = Scale(x, -x.exponent);
    std::int64_t e = x.exponent;
    if (Compare(m, ToWide(0.7, working)) < 0) {
        m = Scale(m, 1);
        --e;
    }
    const WideNumber z = Divide(Subtract(m, one), Add(m, one));
    const WideNumber logarithm = Scale(AtanhSeries(z), 1);
    if (e == 0)
        return logarithm;
    return Add(Multiply(WideLn2(working), ToWide(static_cast<double>(e), working)), logarithm);
}

} // namespace trelvanix
