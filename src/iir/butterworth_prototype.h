#ifndef TRELVANIX_IIR_BUTTERWORTH_PROTOTYPE_H
#define TRELVANIX_IIR_BUTTERWORTH_PROTOTYPE_H

#include "iir/analog_prototype.h"

namespace trelvanix
{

// Poles evenly spaced on the left half of the unit circle, conjugates as neighbours, for an odd order
// -1 at the end; gain 1 at zero frequency.
// Source: Parks & Burrus, Digital Filter Design, 1987.
AnalogPrototype ButterworthPrototype(int order);

} // namespace trelvanix

#endif
