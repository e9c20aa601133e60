#ifndef TRELVANIX_TESTS_BITS_NUMBER_BITS_H
#define TRELVANIX_TESTS_BITS_NUMBER_BITS_H

#include <cstdint>
#include <cstring>

namespace trelvanix::bits
{

// A double and its 64 bits. Not by std::bit_cast, which the standard library of Debian's emscripten lacks.
inline std::uint64_t BitsOf(double number)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

inline double NumberOf(std::uint64_t bits)
{
    double number = 0.0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

} // namespace trelvanix::bits

#endif
