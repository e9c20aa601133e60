#ifndef TRELVANIX_TESTS_BITS_GENERATOR_H
#define TRELVANIX_TESTS_BITS_GENERATOR_H

#include <cstdint>
#include <vector>

#include "bits/mixing.h"

namespace trelvanix::bits
{

// Draws the arguments of one request. Integers and the four operations of arithmetic alone, each of which
// has one result by IEEE 754, so that a seed means the same request on every platform.
class Generator
{
public:
    explicit Generator(std::uint64_t seed) : state(Mixed(seed + goldenStep))
    {
    }

    std::uint64_t Word()
    {
        state += goldenStep;
        return Mixed(state);
    }

    // In [low, high].
    int Between(int low, int high)
    {
        const auto choices = static_cast<std::uint64_t>(std::int64_t{high} - low + 1);
        return static_cast<int>(low + static_cast<std::int64_t>(Word() % choices));
    }

    bool OneIn(int chances)
    {
        return Between(1, chances) == 1;
    }

    template <class Element, int count>
    Element OneOf(const Element (&elements)[count])
    {
        return elements[Between(0, count - 1)];
    }

    // In [0, 1), a multiple of 2^-53.
    double Fraction()
    {
        return static_cast<double>(Word() >> 11) * 0x1p-53;
    }

    // A count or an order: now and then a negative one, else in [0, largest].
    int Count(int largest);

    // A code: now and then one that means nothing, else in [0, largest].
    int Code(int largest);

    // Zeros, infinities, not-a-number, subnormal, largest and smallest numbers, the neighbours of 1.
    double Special();

    // Any number at all.
    double AnyBits();

    // A frequency in (0, 1) as people write them, with three digits, or with all bits.
    double Edge();

    // An edge, now and then one outside (0, 1) or a special number. Finite edges between 3 and 1e9 stay
    // out: the equiripple grid grows with them.
    double HostileEdge();

    // A ripple or an attenuation in [0.001, largest] decibels; the hostile one is now and then anything.
    double Decibels(int largest);
    double HostileDecibels(int largest);

    // An array of numbers of one kind: ordinary, whole, sparse, tiny, huge, one or many special ones,
    // arbitrary bits.
    std::vector<double> Numbers(int count);

    // An array of ordinary numbers in [-1, 1).
    std::vector<double> OrdinaryNumbers(int count);

private:
    std::uint64_t state;
};

} // namespace trelvanix::bits

#endif
