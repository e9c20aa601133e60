#include "bits/generator.h"

#include <cstddef>
#include <limits>

#include "bits/number_bits.h"

namespace trelvanix::bits
{
namespace
{

using Limits = std::numeric_limits<double>;

constexpr double specialNumbers[] = {0.0,
                                     -0.0,
                                     1.0,
                                     -1.0,
                                     Limits::infinity(),
                                     -Limits::infinity(),
                                     Limits::quiet_NaN(),
                                     Limits::denorm_min(),
                                     -Limits::denorm_min(),
                                     Limits::min(),
                                     -Limits::min() / 3.0,
                                     Limits::max(),
                                     Limits::lowest(),
                                     Limits::epsilon(),
                                     1.0 - Limits::epsilon() / 2.0,
                                     1.0 + Limits::epsilon(),
                                     1e-300,
                                     -1e300,
                                     2147483647.0,
                                     2147483648.0,
                                     -2147483649.0};

// Between -1 and 1, with few or with many digits.
double Sample(Generator& random, bool manyDigits)
{
    return manyDigits ? 2.0 * random.Fraction() - 1.0 : random.Between(-1000, 1000) / 1000.0;
}

} // namespace

int Generator::Count(int largest)
{
    constexpr int refused[] = {
        -1, -2, -3, -1000, std::numeric_limits<int>::min(), std::numeric_limits<int>::min() + 1};
    return OneIn(24) ? OneOf(refused) : Between(0, largest);
}

int Generator::Code(int largest)
{
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int unknown[] = {-1, -2, 16, 100, 65536, ~least, least};
    if (!OneIn(16))
        return Between(0, largest);
    return OneIn(3) ? largest + 1 : OneOf(unknown);
}

double Generator::Special()
{
    return OneOf(specialNumbers);
}

double Generator::AnyBits()
{
    return NumberOf(Word());
}

double Generator::Edge()
{
    return OneIn(3) ? Fraction() + 0x1p-54 : Between(1, 999) / 1000.0;
}

double Generator::HostileEdge()
{
    if (!OneIn(10))
        return Edge();
    constexpr double outside[] = {-0.25, -1.0, -0.001, 1.001, 1.25, 2.0, 3.0, -1e12, 1e15, 0x1p-60};
    return OneIn(2) ? OneOf(outside) : Special();
}

double Generator::Decibels(int largest)
{
    return OneIn(3) ? Fraction() * largest + 0.001 : Between(1, 100 * largest) / 100.0;
}

double Generator::HostileDecibels(int largest)
{
    if (!OneIn(12))
        return Decibels(largest);
    constexpr double unusual[] = {-0.5, -40.0, 150.0, 300.0, 1000.0, 4000.0, 1e-9, 1e-15};
    return OneIn(2) ? OneOf(unusual) : Special();
}

std::vector<double> Generator::OrdinaryNumbers(int count)
{
    std::vector<double> numbers(static_cast<std::size_t>(count));
    const bool manyDigits = !OneIn(4);
    for (double& number : numbers)
        number = Sample(*this, manyDigits);
    return numbers;
}

std::vector<double> Generator::Numbers(int count)
{
    std::vector<double> numbers = OrdinaryNumbers(count);
    switch (Between(0, 13)) {
    case 0:
        for (double& number : numbers)
            number = Between(-9, 9);
        break;
    case 1: // sparse, with zeros of both signs
        for (double& number : numbers)
            number = OneIn(4) ? number : number * 0.0;
        break;
    case 2: // around the smallest normal number
        for (double& number : numbers)
            number *= 0x1p-1018;
        break;
    case 3: // products and some sums overflow
        for (double& number : numbers)
            number *= 0x1p+1022;
        break;
    case 4: // many magnitudes
        for (double& number : numbers)
            number *= NumberOf(static_cast<std::uint64_t>(Between(923, 1123)) << 52);
        break;
    case 5:
        if (count > 0)
            numbers[static_cast<std::size_t>(Between(0, count - 1))] = Special();
        break;
    case 6:
        for (double& number : numbers)
            number = OneIn(4) ? Special() : number;
        break;
    case 7:
        for (double& number : numbers)
            number = AnyBits();
        break;
    default:
        break;
    }
    return numbers;
}

} // namespace trelvanix::bits
