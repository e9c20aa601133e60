#include "math/argument_reduction.h"

#include <algorithm>
#include <bit>

#include "common/fixed_array.h"
#include "common/numbers.h"
#include "math/scaled_rounding.h"

namespace trelvanix
{
namespace
{

// A number of quarter turns modulo 2^32, in two's complement: one limb before the point, the others behind.
using QuarterTurns = FixedArray<std::uint32_t, 32>;

// Adds x 2 / pi to the sum of the given number of limbs, error below 2^(34 - 32 (limbs - 1)). Of the
// product of the significand and 2 / pi only those limbs are formed that matter: what the higher ones
// contribute are whole turns, of the lower ones three columns are missing. Source: Payne & Hanek 1983.
void AddQuarterTurns(double x, QuarterTurns& sum, int limbs)
{
    const auto bits = BitCast<std::uint64_t>(x);
    const int biased = static_cast<int>(bits >> 52 & 0x7FF);
    std::uint64_t significand = bits & 0xFFFFFFFFFFFFF;
    if (biased > 0)
        significand |= std::uint64_t{1} << 52;
    // x = significand 2^exponent, exponent = 32 position + shift with shift from 0 to 31.
    const int exponent = std::max(biased, 1) - 1075;
    const int shift = exponent & 31;
    const int position = (exponent - shift) / 32;
    const std::uint64_t low = (significand & 0xFFFFFFFF) << shift;
    const std::uint64_t high = ((significand >> 32) << shift) + (low >> 32);
    const FixedArray<std::uint64_t, 3> factor = {low & 0xFFFFFFFF, high & 0xFFFFFFFF, high >> 32};

    QuarterTurns product{};
    for (int part = 0; part < 3; ++part) {
        std::uint64_t carry = 0;
        for (int i = limbs - 1; i >= 0; --i) {
            // Limb i weighs 2^(-32 i), entry j of the table 2^(-32 (j + 1)).
            const int entry = position + part + i - 1;
            const bool inside = entry >= 0 && entry < twoOverPiLimbs.Size();
            const std::uint64_t digit =
                factor[part] * (inside ? twoOverPiLimbs[entry] : 0U) + product[i] + carry;
            product[i] = static_cast<std::uint32_t>(digit);
            carry = digit >> 32;
        }
    }
    const bool negative = bits >> 63 != 0;
    std::uint64_t carry = negative ? 1 : 0;
    for (int i = limbs - 1; i >= 0; --i) {
        const std::uint32_t digit = negative ? ~product[i] : product[i];
        carry += std::uint64_t{sum[i]} + digit;
        sum[i] = static_cast<std::uint32_t>(carry);
        carry >>= 32;
    }
}

// The nearest multiple of 2^-bits, modulo 4 and counted in these, and the magnitude and sign of what is
// left, whose first limb behind the point stands first.
struct Nearest {
    int multiple;
    bool negative;
};

Nearest TakeNearest(QuarterTurns& turns, int bits, int limbs)
{
    const auto leading = static_cast<int>((turns[0] & 3U) << bits);
    const int next = bits == 0 ? 0 : static_cast<int>(turns[1] >> (32 - bits));
    // 2^-bits is unit of the last place before the point now.
    for (int i = 0; i + 1 < limbs; ++i) {
        const std::uint64_t pair =
            std::uint64_t{turns[i + 1]} << 32 | (i + 2 < limbs ? turns[i + 2] : 0U);
        turns[i] = static_cast<std::uint32_t>((pair << bits) >> 32);
    }
    turns[limbs - 1] = 0;
    const bool negative = turns[0] >> 31 != 0;
    if (negative) {
        std::uint64_t carry = 1;
        for (int i = limbs - 1; i >= 0; --i) {
            carry += static_cast<std::uint32_t>(~turns[i]);
            turns[i] = static_cast<std::uint32_t>(carry);
            carry >>= 32;
        }
    }
    return {(leading + next + (negative ? 1 : 0)) % (4 << bits), negative};
}

// 0.turns[0] turns[1] ... as a pair, error below 2^-105 relative and what lies beyond the limbs.
Pair ToPair(const QuarterTurns& turns, int limbs)
{
    int first = 0;
    while (first + 4 < limbs && turns[first] == 0)
        ++first;
    const auto limb = [&](int i) { return std::uint64_t{first + i < limbs ? turns[first + i] : 0U}; };
    const std::uint64_t upper = limb(0) << 32 | limb(1);
    const std::uint64_t lower = limb(2) << 32 | limb(3);
    const int zeros = upper == 0 ? 0 : std::countl_zero(upper);
    const std::uint64_t leading = zeros == 0 ? upper : upper << zeros | lower >> (64 - zeros);
    const std::uint64_t following = lower << zeros | limb(4) << zeros >> 32;
    // Two runs of 53 bits, the first from the leading bit.
    const auto high = static_cast<double>(leading >> 11);
    const auto low = static_cast<double>((leading & 0x7FF) << 42 | following >> 22);
    const int exponent = -32 * first - zeros;
    return FastTwoSum(high * PowerOfTwo(exponent - 53), low * PowerOfTwo(exponent - 106));
}

// Six bits become the index, 106 the pair, the last 34 are uncertain: 142 bits are left to cancel.
ReducedPair ReduceLargePair(Pair x)
{
    constexpr int limbs = 10;
    QuarterTurns turns{};
    AddQuarterTurns(x.high, turns, limbs);
    AddQuarterTurns(x.low, turns, limbs);
    const Nearest nearest = TakeNearest(turns, 6, limbs);
    const Pair rest = ToPair(turns, limbs) * angleStepPair;
    return {nearest.multiple, nearest.negative ? -rest : rest};
}

// As ReduceModerate, with a fourth part. The difference of x.high and the first two parts is exact; the sums
// that follow have errors of some 2^-105 of the larger of the rest and 2^-54, which is what is left.
ReducedPair ReduceModeratePair(Pair x)
{
    constexpr double shifter = 0x1.8p52;
    const double shifted = x.high * angleStepsPerRadian + shifter;
    const double k = shifted - shifter;
    const Pair difference = TwoSum(x.high - k * angleStepHigh, -(k * angleStepMiddle));
    const Pair product = TwoProduct(k, angleStepLow) + k * angleStepTail;
    return {static_cast<int>(BitCast<std::uint64_t>(shifted) % turnSteps),
            (difference + x.low) - product};
}

} // namespace

ReducedAngle ReduceLarge(double x)
{
    const ReducedPair angle = ReduceLargePair({x, 0.0});
    return {angle.index, angle.rest.high, angle.rest.low, 0x1p-101 * std::fabs(angle.rest.high)};
}

ReducedPair ReduceToPair(Pair x)
{
    if (std::fabs(x.high) <= largestModerate) {
        const ReducedPair angle = ReduceModeratePair(x);
        // Closer to a multiple of pi / 128 too much has cancelled.
        if (std::fabs(angle.rest.high) > 0x1p-40)
            return angle;
    }
    return ReduceLargePair(x);
}

// Five limbs more than asked for: 34 bits are uncertain, some 65 cancel at worst.
WideReduced ReduceToWide(double x, int limbs)
{
    const int count = std::min(limbs + 5, QuarterTurns{}.Size());
    QuarterTurns turns{};
    AddQuarterTurns(x, turns, count);
    const Nearest nearest = TakeNearest(turns, 0, count);
    const WideNumber fraction = ToWide(turns.begin(), count, 0, limbs + 1);
    WideNumber rest = Multiply(fraction, QuarterPi(1, limbs + 1));
    return {nearest.multiple, nearest.negative ? Negate(rest) : rest};
}

WideNumber QuarterPi(std::int64_t power, int limbs)
{
    return ToWide(quarterPiLimbs.begin(), quarterPiLimbs.Size(), power, limbs);
}

} // namespace trelvanix
