#ifndef TRELVANIX_COMMON_NUMBERS_H
#define TRELVANIX_COMMON_NUMBERS_H

#include <limits>

namespace trelvanix
{

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
