#ifndef TRELVANIX_TESTS_BITS_MIXING_H
#define TRELVANIX_TESTS_BITS_MIXING_H

#include <cstdint>

namespace trelvanix::bits
{

// A permutation of the 64-bit words in which every bit of the argument changes half of the result's:
// what requests are drawn with and digests are made of.
// Source: Steele, Lea & Flood 2014 (SplitMix), the constants by Stafford.
constexpr std::uint64_t Mixed(std::uint64_t word)
{
    word = (word ^ (word >> 30)) * 0xbf58476d1ce4e5b9;
    word = (word ^ (word >> 27)) * 0x94d049bb133111eb;
    return word ^ (word >> 31);
}

// The golden ratio as a fraction of 2^64, odd: multiples of it spread evenly over the words.
constexpr std::uint64_t goldenStep = 0x9e3779b97f4a7c15;

} // namespace trelvanix::bits

#endif
