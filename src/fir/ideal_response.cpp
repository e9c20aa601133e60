#include "fir/ideal_response.h"

#include "common/constants.h"
#include "common/work_array.h"
#include "math/trigonometric.h"

namespace trelvanix
{
namespace
{

// The response sampled at t = n - (N - 1) / 2; the formula has no value at t = 0, which only an odd N
// meets. sinesAt gives the sines that the formula needs at t > 0; at -t they are the same with the
// opposite sign, to the last bit. The formula itself is taken at both: where sines cancel to zero, the
// signs of the two zeros differ.
template <class Sines, class Formula>
std::vector<double> SampleImpulse(int N, double valueAtCentre, Sines sinesAt, Formula valueAt)
{
    auto h = NewWorkArray<double>(N);
    const double middle = (N - 1) * 0.5;
    int n = N - 1;
    for (; n > middle; --n) {
        const double t = n - middle;
        const auto sines = sinesAt(t);
        h.data()[n] = valueAt(t, sines);
        h.data()[N - 1 - n] = valueAt(-t, -sines);
    }
    if (n == middle)
        h.data()[n] = valueAtCentre;
    return h;
}

// The sines of t times three frequencies, as far as a response needs them.
struct Sines {
    double atPi, atOmega1, atOmega2;

    Sines operator-() const
    {
        return {-atPi, -atOmega1, -atOmega2};
    }
};

} // namespace

std::vector<double> LowPassImpulse(int N, double omega1)
{
    return SampleImpulse(
        N, omega1 / pi, [=](double t) { return Sin(t * omega1); },
        [](double t, double sine) { return sine / (t * pi); });
}

// sin(t pi) stays although it is nearly zero for an odd N: for an even one it is +1 or -1.
std::vector<double> HighPassImpulse(int N, double omega1)
{
    return SampleImpulse(
        N, 1.0 - omega1 / pi,
        [=](double t) {
            return Sines{Sin(t * pi), Sin(t * omega1), 0.0};
        },
        [](double t, const Sines& sine) { return (sine.atPi - sine.atOmega1) / (t * pi); });
}

std::vector<double> BandPassImpulse(int N, double omega1, double omega2)
{
    return SampleImpulse(
        N, (omega2 - omega1) / pi,
        [=](double t) {
            return Sines{0.0, Sin(t * omega1), Sin(t * omega2)};
        },
        [](double t, const Sines& sine) { return (sine.atOmega2 - sine.atOmega1) / (t * pi); });
}

std::vector<double> BandStopImpulse(int N, double omega1, double omega2)
{
    return SampleImpulse(
        N, 1.0 - (omega2 - omega1) / pi,
        [=](double t) {
            return Sines{Sin(t * pi), Sin(t * omega1), Sin(t * omega2)};
        },
        [](double t, const Sines& sine) {
            return (sine.atPi - sine.atOmega2 + sine.atOmega1) / (t * pi);
        });
}

} // namespace trelvanix
