#ifndef TRELVANIX_COMMON_CONSTANTS_H
#define TRELVANIX_COMMON_CONSTANTS_H

namespace trelvanix
{

// The doubles nearest to pi and its multiples.
inline constexpr double halfPi = 1.5707963267948966;
inline constexpr double pi = 3.141592653589793;
inline constexpr double twoPi = 6.283185307179586;
inline constexpr double fourPi = 12.566370614359172;
inline constexpr double sixPi = 18.84955592153876;

} // namespace trelvanix

#endif
