#include "family_designs.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <stdexcept>
#include <utility>

namespace
{

constexpr int lowPassType = 0, digital = 0;

// Of an IIR filter. Coefficients in double precision have been found to hold filters up to this order
// for the widest bands, and far less for narrow ones (docs/NUMERICS.md).
constexpr int largestOrder = 25;

// Frequencies from 0 to Nyquist, no less than 130 in the narrowest band that CheckMask lets through.
constexpr int responsePoints = 1 << 16;

using DesignFunction = void (*)(const LowPassMask& mask, int order, double* wn, DigitalFilter& filter);

struct Family {
    int designType; // for FilterMinimumOrder
    const char* name;
    const char* fileName;
    DesignFunction design;
};

constexpr std::array<Family, 4> families{
    {{0, "Butterworth", "butterworth",
      [](const LowPassMask&, int order, double* wn, DigitalFilter& filter) {
          Butterworth(order, wn, lowPassType, digital, filter.a.data(), filter.b.data());
      }},
     {1, "Chebyshev I", "chebyshev1",
      [](const LowPassMask& mask, int order, double* wn, DigitalFilter& filter) {
          Chebyshv1(order, mask.passRipple, wn, lowPassType, digital, filter.a.data(), filter.b.data());
      }},
     {2, "Chebyshev II", "chebyshev2",
      [](const LowPassMask& mask, int order, double* wn, DigitalFilter& filter) {
          Chebyshv2(order, mask.stopAttenuation, wn, lowPassType, digital, filter.a.data(),
                    filter.b.data());
      }},
     {3, "elliptic", "elliptic",
      [](const LowPassMask& mask, int order, double* wn, DigitalFilter& filter) {
          Elliptic(order, mask.passRipple, mask.stopAttenuation, wn, lowPassType, digital,
                   filter.a.data(), filter.b.data());
      }}}};

// The response is measured from so much of the impulse response; what comes later has to be nothing.
bool DiesAway(const DigitalFilter& filter)
{
    constexpr std::size_t count = 2 * std::size_t{responsePoints}, tail = count / 16;
    std::vector<double> impulse(count);
    impulse[0] = 1.0;
    const LibraryArray response = Apply(filter, impulse.data(), static_cast<int>(count));
    double largest = 0.0;
    for (std::size_t n = 0; n < count; ++n) {
        if (!std::isfinite(response[n]))
            return false;
        largest = std::max(largest, std::abs(response[n]));
    }
    return std::all_of(response.get() + (count - tail), response.get() + count,
                       [=](double value) { return std::abs(value) <= 1e-12 * largest; });
}

FamilyDesign DesignFamily(const Family& family, const LowPassMask& mask)
{
    const double nyquist = 0.5 * mask.rate;
    const std::array<double, 2> edges{mask.passEdge / nyquist, mask.stopEdge / nyquist};
    int order = 0;
    double wn = 0.0;
    FilterMinimumOrder(family.designType, edges.data(), 2, mask.passRipple, mask.stopAttenuation,
                       &order, &wn);
    const std::string name = family.name;
    if (order < 1)
        throw std::runtime_error("no order of the " + name + " family meets this request");
    if (order > largestOrder)
        throw std::runtime_error("the " + name + " filter would need order " + std::to_string(order) +
                                 ", and coefficients hold none above " + std::to_string(largestOrder) +
                                 "; allow a wider transition, more ripple or less attenuation");

    const auto count = static_cast<std::size_t>(order) + 1;
    DigitalFilter filter{std::vector<double>(count), std::vector<double>(count)};
    family.design(mask, order, &wn, filter);
    if (!DiesAway(filter))
        throw std::runtime_error("the " + name + " design of order " + std::to_string(order) +
                                 " for this request is of no use: its impulse response is not finite "
                                 "or does not die away");
    FilterResponse response = ResponseOf(filter, mask.rate, responsePoints);
    return {name, family.fileName, std::move(filter), std::move(response)};
}

FamilyDesign DesignEquiripple(const LowPassMask& mask, double share)
{
    // A gain between 1 - d and 1 + d, divided by 1 + d, lies between -passRipple and 0 dB.
    const double ripple = std::pow(10.0, mask.passRipple / 20.0);
    const double passDeviation = (ripple - 1.0) / (ripple + 1.0);
    const double peak = 1.0 + passDeviation;
    const double stopDeviation = peak * std::pow(10.0, -mask.stopAttenuation / 20.0);
    std::array<double, 2> deviations{share * passDeviation, share * stopDeviation};

    const double nyquist = 0.5 * mask.rate;
    int order = 0;
    const LibraryArray taps(CreateFirByRemezord(lowPassType, mask.passEdge / nyquist,
                                                mask.stopEdge / nyquist, 0.0, 0.0, deviations.data(), 2,
                                                &order));
    DigitalFilter filter = FromTaps(taps, order);
    for (double& tap : filter.b)
        tap /= peak;
    FilterResponse response = ResponseOf(filter, mask.rate, responsePoints);
    return {"equiripple FIR", "equiripple_fir", std::move(filter), std::move(response)};
}

} // namespace

std::vector<FamilyDesign> DesignIirFamilies(const LowPassMask& mask)
{
    std::vector<FamilyDesign> designs;
    designs.reserve(families.size());
    for (const Family& family : families)
        designs.push_back(DesignFamily(family, mask));
    return designs;
}

EquirippleDesign DesignEquirippleFir(const LowPassMask& mask)
{
    const FamilyDesign estimated = DesignEquiripple(mask, 1.0);
    // Some 0.4 dB less each time.
    double share = 1.0;
    while (share >= 0.1) {
        FamilyDesign design = DesignEquiripple(mask, share);
        if (IsMet(CompareWithMask(design.response, mask)))
            return {estimated, std::move(design), share};
        share *= 0.95;
    }
    return {estimated, estimated, 1.0};
}
