#ifndef TRELVANIX_TESTS_FUZZ_ARGUMENTS_H
#define TRELVANIX_TESTS_FUZZ_ARGUMENTS_H

#include <fuzzer/FuzzedDataProvider.h>

#include <bit>
#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "fuzz/invariants.h"

namespace trelvanix::fuzz
{

// Arguments for the exported functions, made of the fuzzer's bytes: ordinary ones, so that the
// algorithms run, mixed with hostile ones.
class Arguments
{
public:
    Arguments(const std::uint8_t* data, std::size_t size) : bytes(data, size)
    {
    }

    // At random in [low, high].
    int Below(int low, int high)
    {
        return bytes.ConsumeIntegralInRange(low, high);
    }

    bool Flag()
    {
        return bytes.ConsumeBool();
    }

    // A count or an order: mostly in [0, limit], now and then negative.
    int Count(int limit)
    {
        constexpr int negative[] = {-1, -2, -1000, INT_MIN, INT_MIN + 1};
        return Rarely() ? bytes.PickValueInArray(negative) : Below(0, limit);
    }

    // A code: mostly one that means something, now and then any int.
    int Code(int limit)
    {
        return Rarely() ? bytes.ConsumeIntegral<int>() : Below(0, limit);
    }

    // Any double at all: ordinary, special, or arbitrary bits.
    double Number()
    {
        switch (Below(0, 3)) {
        case 0:
            return Special();
        case 1:
            return Bits();
        default:
            return Below(-1000, 1000) / 64.0;
        }
    }

    // An edge: mostly inside (0, 1), now and then elsewhere. Finite edges between 100 and 1e7 are left
    // out: the equiripple grid grows with them, and that many points take minutes by contract.
    double Edge()
    {
        if (!Rarely())
            return bytes.ConsumeFloatingPointInRange(0.0, 1.0);
        const double edge = Number();
        return std::fabs(edge) > 100.0 && std::fabs(edge) < 1e7 ? std::fmod(edge, 100.0) : edge;
    }

    // Ripples and attenuations in decibels.
    double Decibels()
    {
        return Rarely() ? Number() : bytes.ConsumeFloatingPointInRange(0.0, 150.0);
    }

    // Ripples and attenuations as factors.
    double Deviation()
    {
        return Rarely() ? Number() : Below(1, 1000) / 1000.0;
    }

    std::vector<double> Numbers(int count)
    {
        std::vector<double> numbers(static_cast<std::size_t>(count > 0 ? count : 0));
        // One kind of number all over the array, so that not every signal is spoilt by one value.
        const bool ordinary = Flag();
        for (double& number : numbers)
            number = ordinary ? Below(-1000, 1000) / 64.0 : Number();
        return numbers;
    }

private:
    bool Rarely()
    {
        return Below(0, 15) == 0;
    }

    // Not the patterns of untouched memory with either sign: the fuzzer learns them from the comparisons,
    // and results that repeat an argument or its negative would look unwritten.
    double Bits()
    {
        const double value = std::bit_cast<double>(bytes.ConsumeIntegral<std::uint64_t>());
        const double magnitude = std::fabs(value);
        return SameBits(magnitude, std::fabs(Unwritten())) ||
                       SameBits(magnitude, std::fabs(FreshMemory()))
                   ? 0.0
                   : value;
    }

    double Special()
    {
        using Limits = std::numeric_limits<double>;
        constexpr double specials[] = {0.0,
                                       -0.0,
                                       1.0,
                                       -1.0,
                                       Limits::infinity(),
                                       -Limits::infinity(),
                                       Limits::quiet_NaN(),
                                       Limits::denorm_min(),
                                       -Limits::denorm_min(),
                                       Limits::min(),
                                       Limits::max(),
                                       Limits::lowest(),
                                       Limits::epsilon(),
                                       1.0 - Limits::epsilon() / 2.0,
                                       1e-300,
                                       2147483647.0,
                                       2147483648.0};
        return bytes.PickValueInArray(specials);
    }

    FuzzedDataProvider bytes;
};

} // namespace trelvanix::fuzz

#endif
