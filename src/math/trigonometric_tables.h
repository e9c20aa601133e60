#ifndef TRELVANIX_MATH_TRIGONOMETRIC_TABLES_H
#define TRELVANIX_MATH_TRIGONOMETRIC_TABLES_H

#include <cstdint>

#include "common/fixed_array.h"
#include "math/pair.h"

namespace trelvanix
{

// A sine as a sum of three doubles, the first of at most 27 bits, and as the nearest double.
struct SineEntry {
    double brief;
    double rest;
    double tail;
    double nearest;
};

inline constexpr int turnSteps = 256;
inline constexpr int quarterSteps = turnSteps / 4;

// sin(k pi / 128).
inline constexpr FixedArray<SineEntry, turnSteps> sineTable = {{
#include "math/sine_table.inc"
}};

inline constexpr int arcNodes = 64;

// atan(k / 64).
inline constexpr FixedArray<Pair, arcNodes + 1> arcTangentTable = {{
#include "math/arc_tangent_table.inc"
}};

// The digits of 2 / pi behind the point, to the base 2^32.
inline constexpr FixedArray<std::uint32_t, 64> twoOverPiLimbs = {
#include "math/two_over_pi.inc"
};

// The digits of pi / 4 behind the point, to the base 2^32.
inline constexpr FixedArray<std::uint32_t, 48> quarterPiLimbs = {
#include "math/quarter_pi.inc"
};

#include "math/trigonometric_constants.inc"

} // namespace trelvanix

#endif
