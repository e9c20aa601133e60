#ifndef TRELVANIX_COMMON_NUMBERS_H
#define TRELVANIX_COMMON_NUMBERS_H

#include <limits>

namespace trelvanix
{

// The bits of a value as another type of the same size: std::bit_cast, which standard libraries lack that the
// library is built with (that of Debian 12's emscripten).
template <class To, class From>
constexpr To BitCast(From value)
{
    return __builtin_bit_cast(To, value);
}

// The one way from a double to an int: truncated towards zero. Not-a-number and values whose truncation
// does not fit give the most negative int, where the language leaves the outcome open.
inline int ToInt(double value)
{
    // Both bounds are doubles: every value between them truncates into the range of int.
    constexpr double below = -2147483649.0, above = 2147483648.0;
    if (value > below && value < above)
        return static_cast<int>(value);
    return std::numeric_limits<int>::min();
}

} // namespace trelvanix

#endif
