#include "math/wide_number.h"
#include "common/fixed_array.h"
#include "common/numbers.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace trelvanix
{
namespace
{

using Limb = std::uint32_t;

constexpr int limbBits = 32;
constexpr Limb topBit = 0x80000000U;

// Room for a product, or for a number with a guard limb.
using LongDigits = FixedArray<Limb, 2 * WideNumber::maxLimbs + 1>;

// 0.digits[0] ... digits[count - 1] times 2^exponent, brought to the form of a wide number and cut.
WideNumber Normalized(const LongDigits& digits, int count, std::int64_t exponent, int limbs,
                      bool negative)
{
    WideNumber result;
    result.limbs = limbs;
    int first = 0;
    while (first < count && digits[first] == 0)
        ++first;
    if (first == count)
        return result;
    const int shift = std::countl_zero(digits[first]);
    for (int i = 0; i < limbs && first + i < count; ++i) {
        const std::uint64_t next = first + i + 1 < count ? digits[first + i + 1] : 0;
        const std::uint64_t both = (std::uint64_t{digits[first + i]} << limbBits | next) << shift;
        result.digits[i] = static_cast<Limb>(both >> limbBits);
    }
    result.exponent = exponent - std::int64_t{limbBits} * first - shift;
    result.negative = negative;
    return result;
}

int CompareMagnitudes(const WideNumber& x, const WideNumber& y)
{
    if (IsZero(x) || IsZero(y))
        return static_cast<int>(!IsZero(x)) - static_cast<int>(!IsZero(y));
    if (x.exponent != y.exponent)
        return x.exponent < y.exponent ? -1 : 1;
    // Digits beyond the last limb are zeros.
    for (int i = 0; i < WideNumber::maxLimbs; ++i) {
        if (x.digits[i] != y.digits[i])
            return x.digits[i] < y.digits[i] ? -1 : 1;
    }
    return 0;
}

// The digits of x behind a leading zero limb, shifted right by shift >= 0 bits and cut to count limbs.
LongDigits Shifted(const WideNumber& x, std::int64_t shift, int count)
{
    LongDigits result{};
    if (shift >= std::int64_t{limbBits} * count)
        return result;
    const int limbShift = static_cast<int>(shift / limbBits);
    const int bitShift = static_cast<int>(shift % limbBits);
    for (int i = 1 + limbShift; i < count; ++i) {
        const int source = i - 1 - limbShift;
        const std::uint64_t left = source > 0 ? x.digits[source - 1] : 0;
        const std::uint64_t right = source < x.limbs ? x.digits[source] : 0;
        result[i] = static_cast<Limb>((left << limbBits | right) >> bitShift);
        // Beyond the last limb there is nothing left to move in.
        if (source > x.limbs)
            break;
    }
    return result;
}

// |large| + |small| or |large| - |small| with the sign of large; |large| >= |small| > 0. Between a leading
// limb for the carry and a guard limb: where a difference loses two bits or more, the exponents differ by
// one at most, and the guard limb holds all that is shifted out.
WideNumber Combine(const WideNumber& large, const WideNumber& small, bool subtract, bool negative)
{
    const int limbs = std::max(large.limbs, small.limbs);
    const int count = limbs + 2;
    LongDigits sum = Shifted(large, 0, count);
    const LongDigits other = Shifted(small, large.exponent - small.exponent, count);
    std::uint64_t carry = 0;
    for (int i = count - 1; i >= 0; --i) {
        if (subtract) {
            const std::uint64_t digit = std::uint64_t{sum[i]} - other[i] - carry;
            sum[i] = static_cast<Limb>(digit);
            carry = digit >> 63;
        } else {
            const std::uint64_t digit = std::uint64_t{sum[i]} + other[i] + carry;
            sum[i] = static_cast<Limb>(digit);
            carry = digit >> limbBits;
        }
    }
    return Normalized(sum, count, large.exponent + limbBits, limbs, negative);
}

} // namespace

WideNumber ToWide(double x, int limbs)
{
    const auto bits = BitCast<std::uint64_t>(x);
    const auto biased = static_cast<std::int64_t>(bits >> 52 & 0x7FF);
    std::uint64_t significand = bits & 0xFFFFFFFFFFFFF;
    if (biased > 0)
        significand |= std::uint64_t{1} << 52;
    LongDigits digits{};
    digits[0] = static_cast<Limb>(significand >> limbBits);
    digits[1] = static_cast<Limb>(significand);
    // The last of the 64 bits weighs as the significand's last bit does: 2^(biased - 1075).
    const std::int64_t exponent = std::max(biased, std::int64_t{1}) - 1075 + 64;
    return Normalized(digits, 2, exponent, limbs, bits >> 63 != 0);
}

WideNumber ToWide(const std::uint32_t* digits, int count, std::int64_t exponent, int limbs)
{
    LongDigits all{};
    count = std::min(count, 2 * WideNumber::maxLimbs);
    std::copy_n(digits, count, all.begin());
    return Normalized(all, count, exponent, limbs, false);
}

WideNumber Negate(WideNumber x)
{
    x.negative = !x.negative && !IsZero(x);
    return x;
}

WideNumber Scale(WideNumber x, std::int64_t power)
{
    if (!IsZero(x))
        x.exponent += power;
    return x;
}

WideNumber Add(const WideNumber& x, const WideNumber& y)
{
    if (IsZero(x) || IsZero(y)) {
        WideNumber result = IsZero(x) ? y : x;
        result.limbs = std::max(x.limbs, y.limbs);
        return result;
    }
    const bool subtract = x.negative != y.negative;
    return CompareMagnitudes(x, y) >= 0 ? Combine(x, y, subtract, x.negative)
                                        : Combine(y, x, subtract, y.negative);
}

WideNumber Subtract(const WideNumber& x, const WideNumber& y)
{
    return Add(x, Negate(y));
}

WideNumber Multiply(const WideNumber& x, const WideNumber& y)
{
    const int limbs = std::max(x.limbs, y.limbs);
    LongDigits product{};
    for (int i = x.limbs - 1; i >= 0; --i) {
        std::uint64_t carry = 0;
        for (int j = y.limbs - 1; j >= 0; --j) {
            const std::uint64_t digit =
                std::uint64_t{x.digits[i]} * y.digits[j] + product[i + j + 1] + carry;
            product[i + j + 1] = static_cast<Limb>(digit);
            carry = digit >> limbBits;
        }
        product[i] = static_cast<Limb>(carry);
    }
    return Normalized(product, x.limbs + y.limbs, x.exponent + y.exponent, limbs,
                      x.negative != y.negative);
}

WideNumber Multiply(const WideNumber& x, std::uint32_t factor)
{
    return Multiply(x, ToWide(&factor, 1, limbBits, 2));
}

// Bit by bit: the remainder stays below the divisor.
WideNumber Divide(const WideNumber& x, const WideNumber& y)
{
    const int limbs = std::max(x.limbs, y.limbs);
    // The quotient of the two fractions lies between 1/2 and 2: one bit before the point, and a limb more
    // for its last place.
    LongDigits quotient{};
    LongDigits remainder{};
    std::copy_n(x.digits.begin(), limbs, remainder.begin() + 1);
    const auto subtractWherePossible = [&] {
        bool below = remainder[0] == 0;
        if (below) {
            const auto difference =
                std::mismatch(y.digits.begin(), y.digits.begin() + limbs, remainder.begin() + 1);
            below =
                difference.first != y.digits.begin() + limbs && *difference.second < *difference.first;
        }
        if (below)
            return false;
        std::uint64_t borrow = 0;
        for (int i = limbs; i >= 1; --i) {
            const std::uint64_t digit = std::uint64_t{remainder[i]} - y.digits[i - 1] - borrow;
            remainder[i] = static_cast<Limb>(digit);
            borrow = digit >> 63;
        }
        remainder[0] -= static_cast<Limb>(borrow);
        return true;
    };
    for (int bit = 0; bit < limbBits * (limbs + 1); ++bit) {
        if (subtractWherePossible())
            quotient[bit / limbBits] |= topBit >> bit % limbBits;
        for (int i = 0; i <= limbs; ++i)
            remainder[i] = remainder[i] << 1 | (i < limbs ? remainder[i + 1] >> (limbBits - 1) : 0);
    }
    return Normalized(quotient, limbs + 1, x.exponent - y.exponent + 1, limbs,
                      x.negative != y.negative);
}

WideNumber Divide(const WideNumber& x, std::uint32_t divisor)
{
    LongDigits quotient{};
    std::uint64_t remainder = 0;
    for (int i = 0; i < x.limbs + 2; ++i) {
        const std::uint64_t part = remainder << limbBits | (i < x.limbs ? x.digits[i] : 0);
        quotient[i] = static_cast<Limb>(part / divisor);
        remainder = part % divisor;
    }
    return Normalized(quotient, x.limbs + 2, x.exponent, x.limbs, x.negative);
}

// Newton's iteration from the square root of the leading bits, each round doubling their number; the last
// division brings an error below one ulp, which the mean halves.
WideNumber Sqrt(const WideNumber& x)
{
    if (IsZero(x))
        return x;
    const std::int64_t half = (x.exponent - (x.exponent & 1)) / 2;
    WideNumber root = ToWide(std::sqrt(ToDouble(Scale(x, -2 * half))), x.limbs);
    root = Scale(root, half);
    for (int bits = 50; bits < limbBits * x.limbs + 4; bits *= 2)
        root = Scale(Add(root, Divide(x, root)), -1);
    return root;
}

int Compare(const WideNumber& x, const WideNumber& y)
{
    if (x.negative != y.negative)
        return x.negative ? -1 : 1;
    return x.negative ? CompareMagnitudes(y, x) : CompareMagnitudes(x, y);
}

double ToDouble(const WideNumber& x)
{
    if (IsZero(x))
        return 0.0;
    const double sign = x.negative ? -1.0 : 1.0;
    if (x.exponent > 1024)
        return sign * std::numeric_limits<double>::infinity();
    // Below half of the smallest subnormal.
    if (x.exponent < -1074)
        return sign * 0.0;
    const int exponent = static_cast<int>(x.exponent);
    const int precision = exponent >= -1021 ? 53 : exponent + 1074;
    const std::uint64_t leading = std::uint64_t{x.digits[0]} << limbBits | x.digits[1];
    const bool sticky =
        std::any_of(x.digits.begin() + 2, x.digits.end(), [](Limb d) { return d != 0; });
    const std::uint64_t kept = precision == 0 ? 0 : leading >> (64 - precision);
    const std::uint64_t cut = leading << precision;
    constexpr std::uint64_t half = std::uint64_t{1} << 63;
    const bool up = cut > half || (cut == half && (sticky || (kept & 1) != 0));
    // A carry runs from the significand into the exponent, from subnormals to normals and from the largest
    // number to infinity, as it should.
    std::uint64_t bits = kept + static_cast<std::uint64_t>(up);
    if (exponent >= -1021)
        bits += static_cast<std::uint64_t>(exponent + 1021) << 52;
    return sign * BitCast<double>(bits);
}

std::optional<double> RoundToDouble(const WideNumber& x, std::int64_t errorExponent)
{
    // Twice the bound, because a sum may be cut by an ulp.
    const WideNumber error = Scale(ToWide(1.0, x.limbs), errorExponent + 1);
    const double below = ToDouble(Subtract(x, error));
    const double above = ToDouble(Add(x, error));
    // Zeros of either sign differ.
    if (BitCast<std::uint64_t>(below) != BitCast<std::uint64_t>(above))
        return std::nullopt;
    return below;
}

} // namespace trelvanix
