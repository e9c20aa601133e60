#ifndef TRELVANIX_TESTS_SUPPORT_IIR_ARRAYS_H
#define TRELVANIX_TESTS_SUPPORT_IIR_ARRAYS_H

#include <cstddef>
#include <utility>
#include <vector>

namespace trelvanix::testing
{

using Row = std::vector<double>;

// The arrays that a host hands to an IIR design: the edges, and room for exactly the coefficients that
// are written, filled with a number that no design gives.
struct IirArrays {
    Row a;
    Row b;
    Row wn;

    IirArrays(int order, Row edges, unsigned filterType)
        : a(CoefficientCount(order, filterType), 99.0), b(a), wn(std::move(edges))
    {
    }

private:
    static std::size_t CoefficientCount(int order, unsigned filterType)
    {
        return static_cast<std::size_t>(order) * (filterType == 2 || filterType == 3 ? 2 : 1) + 1;
    }
};

} // namespace trelvanix::testing

#endif
