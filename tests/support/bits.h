#ifndef TRELVANIX_TESTS_SUPPORT_BITS_H
#define TRELVANIX_TESTS_SUPPORT_BITS_H

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <iomanip>
#include <vector>

namespace trelvanix::testing
{

// The same double, sign of zero included. Not-a-numbers count as equal whatever their payload and sign:
// IEEE 754 leaves those open.
inline bool SameBits(double x, double y)
{
    return std::bit_cast<std::uint64_t>(x) == std::bit_cast<std::uint64_t>(y) ||
           (std::isnan(x) && std::isnan(y));
}

inline ::testing::AssertionResult HasSameBits(const std::vector<double>& expected, const double* got)
{
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (!SameBits(expected[i], got[i])) {
            return ::testing::AssertionFailure()
                   << "element " << i << " of " << expected.size() << ": expected " << std::hexfloat
                   << expected[i] << ", got " << got[i] << std::defaultfloat << std::setprecision(17)
                   << " (" << expected[i] << ", " << got[i] << ")";
        }
    }
    return ::testing::AssertionSuccess();
}

// Every element within tolerance of the expected one.
inline ::testing::AssertionResult IsNear(const std::vector<double>& expected, const double* got,
                                         double tolerance)
{
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (!(std::abs(expected[i] - got[i]) <= tolerance)) {
            return ::testing::AssertionFailure()
                   << std::setprecision(17) << "element " << i << " of " << expected.size()
                   << ": expected " << expected[i] << ", got " << got[i] << ", tolerance " << tolerance;
        }
    }
    return ::testing::AssertionSuccess();
}

} // namespace trelvanix::testing

#endif
