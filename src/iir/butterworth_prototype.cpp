#include "iir/butterworth_prototype.h"

#include "common/constants.h"
#include "linalg/polynomial.h"
#include "math/complex_functions.h"

namespace trelvanix
{

AnalogPrototype ButterworthPrototype(int order)
{
    AnalogPrototype prototype = {};
    std::vector<Complex>& poles = prototype.poles;
    for (int m = 1; m <= order / 2; ++m) {
        const Complex pole = UnitPhasor((2.0 * m - 1.0) * pi / (2.0 * order) + halfPi);
        poles.push_back(pole);
        poles.push_back(std::conj(pole));
    }
    if (order % 2 != 0)
        poles.emplace_back(-1.0, 0.0);
    prototype.gain = ProductOver(poles, [](Complex p) { return -p; }).real();
    return prototype;
}

} // namespace trelvanix
