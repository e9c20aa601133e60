#ifndef TRELVANIX_MATH_EXPONENTIAL_TABLES_H
#define TRELVANIX_MATH_EXPONENTIAL_TABLES_H

#include "common/fixed_array.h"
#include "math/pair.h"

namespace trelvanix
{

// 2^(j / 128) = high + middle + low; high has 26 bits.
struct PowerOfTwoRow {
    double high, middle, low;
};

inline constexpr FixedArray<PowerOfTwoRow, 128> powersOfTwo = {{
#include "math/exponential_table.inc"
}};

// An approximation of 1 / m of ten bits for m in [1 + i / 128, 1 + (i + 1) / 128), or for m / 2 from
// i = 53 on; 1 in the first and in the last row. -log(reciprocal) = high + middle + low; high is a
// multiple of 2^-42, zero or larger than |m reciprocal - 1|, which is at most 2^-7.
struct ReciprocalRow {
    double reciprocal, high, middle, low;
};

inline constexpr FixedArray<ReciprocalRow, 128> reciprocals = {{
#include "math/logarithm_table.inc"
}};

#include "math/exponential_constants.inc"

} // namespace trelvanix

#endif
