#ifndef TRELVANIX_MATH_PAIR_H
#define TRELVANIX_MATH_PAIR_H

#include <cmath>

namespace trelvanix
{

// The unevaluated sum of two doubles, some 106 bits: high is the sum rounded to nearest, so that
// |low| <= ulp(high) / 2. Every operation below takes and returns pairs of that form.
//
// Bounds are relative, with u = 2^-53, and hold while nothing over- or underflows: products need factors
// below 2^995 in magnitude (the splitting multiplies by 2^27 + 1) and a product above 2^-968 or zero (its
// error must be representable), quotients and square roots the same of what they multiply. Callers scale
// by powers of two. Infinities, not-a-number and zero divisors are the callers' to sort out: with them the
// low part is not-a-number.
//
// Fused multiply-adds would make products cheaper, and are a call into a library where the processor has
// none; products split their factors instead.
//
// Sources: Dekker 1971; Joldes, Muller & Popescu 2017 (algorithms and bounds); Lefevre, Louvet, Muller,
// Picot & Rideau 2023 (square root).
struct Pair {
    double high;
    double low;
};

// a + b exactly, for |a| >= |b| or a = 0.
constexpr Pair FastTwoSum(double a, double b)
{
    const double sum = a + b;
    return {sum, b - (sum - a)};
}

// a + b exactly.
constexpr Pair TwoSum(double a, double b)
{
    const double sum = a + b;
    const double second = sum - a;
    const double first = sum - second;
    return {sum, (a - first) + (b - second)};
}

// a = high + low exactly, both of at most 26 bits, so that products of parts are exact.
constexpr Pair SplitInHalves(double a)
{
    const double scaled = 134217729.0 * a; // 2^27 + 1
    const double high = scaled - (scaled - a);
    return {high, a - high};
}

// a * b exactly.
constexpr Pair TwoProduct(double a, double b)
{
    const double product = a * b;
    const Pair x = SplitInHalves(a);
    const Pair y = SplitInHalves(b);
    return {product, ((x.high * y.high - product) + x.high * y.low + x.low * y.high) + x.low * y.low};
}

constexpr Pair operator-(Pair x)
{
    return {-x.high, -x.low};
}

// Bound 2 u^2.
constexpr Pair operator+(Pair x, double y)
{
    const Pair sum = TwoSum(x.high, y);
    return FastTwoSum(sum.high, x.low + sum.low);
}

// Bound 3 u^2 + 13 u^3, cancellation included.
constexpr Pair operator+(Pair x, Pair y)
{
    const Pair high = TwoSum(x.high, y.high);
    const Pair low = TwoSum(x.low, y.low);
    const Pair sum = FastTwoSum(high.high, high.low + low.high);
    return FastTwoSum(sum.high, low.low + sum.low);
}

constexpr Pair operator+(double x, Pair y)
{
    return y + x;
}

constexpr Pair operator-(Pair x, double y)
{
    return x + -y;
}

constexpr Pair operator-(double x, Pair y)
{
    return -y + x;
}

constexpr Pair operator-(Pair x, Pair y)
{
    return x + -y;
}

// Bound 1.5 u^2 + 4 u^3.
constexpr Pair operator*(Pair x, double y)
{
    const Pair high = TwoProduct(x.high, y);
    const Pair sum = FastTwoSum(high.high, x.low * y);
    return FastTwoSum(sum.high, sum.low + high.low);
}

constexpr Pair operator*(double x, Pair y)
{
    return y * x;
}

// Bound 7 u^2.
constexpr Pair operator*(Pair x, Pair y)
{
    const Pair high = TwoProduct(x.high, y.high);
    return FastTwoSum(high.high, high.low + (x.high * y.low + x.low * y.high));
}

// Bound 15 u^2 + 56 u^3.
constexpr Pair operator/(Pair x, Pair y)
{
    const double quotient = x.high / y.high;
    const Pair product = y * quotient;
    const double rest = (x.high - product.high) + (x.low - product.low);
    return FastTwoSum(quotient, rest / y.high);
}

constexpr Pair operator/(Pair x, double y)
{
    return x / Pair{y, 0.0};
}

constexpr Pair operator/(double x, Pair y)
{
    return Pair{x, 0.0} / y;
}

// x * factor for a power of two, exactly while nothing underflows.
constexpr Pair Scale(Pair x, double factor)
{
    return {x.high * factor, x.low * factor};
}

// Square root of x > 0, zero of zero. Bound 25/8 u^2.
inline Pair Sqrt(Pair x)
{
    if (x.high == 0.0)
        return x;
    const double root = std::sqrt(x.high);
    const Pair square = TwoProduct(root, root);
    // The difference of the high part and the square of its rounded root is a double.
    const double rest = ((x.high - square.high) - square.low) + x.low;
    return FastTwoSum(root, rest / (2.0 * root));
}

constexpr bool operator==(Pair x, Pair y)
{
    return x.high == y.high && x.low == y.low;
}

constexpr bool operator<(Pair x, Pair y)
{
    return x.high < y.high || (x.high == y.high && x.low < y.low);
}

constexpr bool operator>(Pair x, Pair y)
{
    return y < x;
}

constexpr bool operator<=(Pair x, Pair y)
{
    return x < y || x == y;
}

constexpr bool operator>=(Pair x, Pair y)
{
    return y <= x;
}

constexpr Pair Abs(Pair x)
{
    return x.high < 0.0 ? -x : x;
}

// Whether every number within bound of high + low rounds to the same double, which then is high + low as
// the processor adds it. bound must hold, beyond the error proper, the roundings of its sums with low:
// 2^-53 |low| and 2^-53 of itself. The rounded sum must be a normal number. Source: Ziv 1991.
constexpr bool RoundsSafely(double high, double low, double bound)
{
    return high + (low - bound) == high + (low + bound);
}

} // namespace trelvanix

#endif
