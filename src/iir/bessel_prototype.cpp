#include "iir/bessel_prototype.h"

#include "common/work_array.h"

namespace trelvanix
{
namespace
{

// Real and imaginary part of every pole, the rows for order 1 .. 25 one after the other.
constexpr double besselPoleTable[][2] = {
#include "iir/bessel_poles.inc"
};

} // namespace

AnalogPrototype BesselPrototype(int order)
{
    AnalogPrototype prototype = {{}, NewWorkArray<Complex>(order), 1.0};
    const auto* row = besselPoleTable + order * (order - 1) / 2;
    for (Complex& pole : prototype.poles) {
        pole = {(*row)[0], (*row)[1]};
        ++row;
    }
    return prototype;
}

} // namespace trelvanix
