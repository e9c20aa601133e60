#ifndef TRELVANIX_IIR_ANALOG_PROTOTYPE_H
#define TRELVANIX_IIR_ANALOG_PROTOTYPE_H

#include <vector>

#include "common/complex_arithmetic.h"

namespace trelvanix
{

// An analog lowpass, the starting point of every design: gain times the product of (s - zero) over the
// product of (s - pole).
struct AnalogPrototype {
    std::vector<Complex> zeros;
    std::vector<Complex> poles;
    double gain;
};

} // namespace trelvanix

#endif
