#include "classic/windowed_design.h"

#include <cstdint>
#include <limits>
#include <new>
#include <stdexcept>

#include "common/complex_arithmetic.h"
#include "common/constants.h"
#include "fir/ideal_response.h"
#include "math/complex_functions.h"
#include "math/exponential.h"

namespace trelvanix
{
namespace
{

double GainAtZero(const double* h, int N)
{
    double sum = 0.0;
    for (int n = 0; n < N; ++n)
        sum += h[n];
    return sum;
}

// Modulus of the response at a frequency given as a fraction of Nyquist.
double GainAt(double frequency, const double* h, int N)
{
    Complex sum = 0.0;
    for (int n = 0; n < N; ++n)
        sum += UnitPhasor(n * -twoPi * (frequency * 0.5)) * h[n];
    return Hypot(sum.real(), sum.imag());
}

double ReferenceGain(const double* h, FilterType filterType, double wc1, double wc2, int N)
{
    switch (filterType) {
    case FilterType::HighPass:
        return GainAt(1.0, h, N);
    case FilterType::BandPass:
        return GainAt((wc1 + wc2) * 0.5, h, N);
    default:
        return GainAtZero(h, N);
    }
}

} // namespace

void CheckFirOrder(int order)
{
    if (order < 1)
        throw std::invalid_argument("Order should be '>=1'");
}

void CheckFirByWindowArguments(int order, int filterType, int windowType, double wc1, double wc2)
{
    CheckWindowType(windowType);
    if (static_cast<std::uint32_t>(filterType) > 3)
        throw std::invalid_argument(
            "filterType should be '0-3'.(LowPass 0, HighPass 1,BandPass 2,BandStop 3)");
    CheckFirOrder(order);
    if (wc1 >= 1.0 || wc1 <= 0.0)
        throw std::invalid_argument("wc1 should be '(0,1)'");
    // Tested for a lowpass too, which makes no use of wc2; hosts know it so.
    if (static_cast<FilterType>(filterType) != FilterType::HighPass && (wc2 >= 1.0 || wc2 <= 0.0))
        throw std::invalid_argument("wc2 should be  '(0,1)'");
}

int TapCount(int order)
{
    if (order == std::numeric_limits<int>::max())
        throw std::bad_array_new_length();
    return order + 1;
}

std::vector<double> IdealImpulseResponse(int N, double omega1, double omega2, FilterType filterType)
{
    switch (filterType) {
    case FilterType::HighPass:
        return HighPassImpulse(N, omega1);
    case FilterType::BandPass:
        return BandPassImpulse(N, omega1, omega2);
    case FilterType::BandStop:
        return BandStopImpulse(N, omega1, omega2);
    default:
        return LowPassImpulse(N, omega1);
    }
}

ResultArray WindowAndNormalise(const double* h, FilterType filterType, WindowType windowType,
                               double wc1, double wc2, int N)
{
    ResultArray taps = CreateWindow(windowType, N);
    double* w = taps.get();
    for (int n = 0; n < N; ++n)
        w[n] *= h[n];
    const double gain = ReferenceGain(w, filterType, wc1, wc2, N);
    for (int n = 0; n < N; ++n)
        w[n] /= gain;
    return taps;
}

ResultArray CreateFirByWindow(int order, int filterType, int windowType, double wc1, double wc2)
{
    CheckFirByWindowArguments(order, filterType, windowType, wc1, wc2);
    const int N = TapCount(order);
    const auto type = static_cast<FilterType>(filterType);
    const std::vector<double> ideal = IdealImpulseResponse(N, wc1 * pi, wc2 * pi, type);
    return WindowAndNormalise(ideal.data(), type, static_cast<WindowType>(windowType), wc1, wc2, N);
}

} // namespace trelvanix
