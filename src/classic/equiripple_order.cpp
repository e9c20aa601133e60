#include "classic/equiripple_order.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <stdexcept>

#include "classic/equiripple_design.h"
#include "classic/filter_type.h"
#include "common/numbers.h"
#include "fir/order_estimate.h"

namespace trelvanix
{
namespace
{

bool HasOneTransition(int filterType)
{
    const auto type = static_cast<FilterType>(filterType);
    return type == FilterType::LowPass || type == FilterType::HighPass;
}

void CheckRemezordArguments(int filterType, int ndev)
{
    if (filterType < 0 || filterType > 3)
        throw std::invalid_argument("Undefined filter types");
    if (HasOneTransition(filterType) && ndev != 2)
        throw std::invalid_argument("Remezord Parameter Error: LowPass or  HighPass maximum allowable "
                                    "deviation length 'ndev' should be 2 ");
    if (!HasOneTransition(filterType) && ndev != 3)
        throw std::invalid_argument("Remezord Parameter Error: BandPass or BandStop maximum allowable "
                                    "deviation length 'ndev' should be 3 ");
}

[[noreturn]] void ThrowNoFiniteOrder()
{
    throw std::invalid_argument("Remezord Parameter Error: the transition edges and deviations give no "
                                "finite order ");
}

std::vector<double> BandMagnitudes(int filterType)
{
    switch (static_cast<FilterType>(filterType)) {
    case FilterType::LowPass:
        return {1.0, 0.0};
    case FilterType::HighPass:
        return {0.0, 1.0};
    default:
        // Bandstop too: hosts have always got the bandpass for it.
        return {0.0, 1.0, 0.0};
    }
}

// The order for an estimated number of taps. A filter of more than some ten thousand taps is no design but a mistake
// in the request, and its exchange would take hours.
int OrderOf(double tapEstimate, bool passesNyquist)
{
    constexpr int largestOrder = 65536;
    const double lowerOrder = std::ceil(tapEstimate) - 1.0;
    const int order = ToInt(lowerOrder);
    if (order != lowerOrder || order > largestOrder) // not finite, out of range
        ThrowNoFiniteOrder();
    return passesNyquist && order % 2 != 0 ? order + 1 : order;
}

} // namespace

RemezordResult Remezord(int filterType, double f1, double f2, double f3, double f4, double* dev,
                        int ndev)
{
    CheckRemezordArguments(filterType, ndev);
    const std::vector<double> magnitudes = BandMagnitudes(filterType);
    for (std::size_t i = 0; i < magnitudes.size(); ++i)
        dev[i] /= magnitudes[i] == 0.0 ? 1.0 : magnitudes[i];

    std::vector<double> fcuts = {f1 * 0.5, f2 * 0.5};
    double estimate = 0.0;
    if (HasOneTransition(filterType)) {
        estimate = LowpassOrderEstimate(fcuts[1], fcuts[0], dev[0], dev[1]);
    } else {
        fcuts.insert(fcuts.end(), {f3 * 0.5, f4 * 0.5});
        const double first = LowpassOrderEstimate(fcuts[1], fcuts[0], dev[1], dev[0]);
        const double second = LowpassOrderEstimate(fcuts[3], fcuts[2], dev[1], dev[2]);
        // The maximum would lose a not-a-number.
        if (std::isnan(first) || std::isnan(second))
            ThrowNoFiniteOrder();
        estimate = std::max({0.0, first, second});
    }

    RemezordResult result = {OrderOf(estimate, magnitudes.back() != 0.0), {0.0}, {}, {}};
    for (const double f : fcuts)
        result.edges.push_back(2.0 * f);
    result.edges.push_back(1.0);
    for (const double magnitude : magnitudes)
        result.amplitudes.insert(result.amplitudes.end(), 2, magnitude);
    const double largest = *std::max_element(dev, dev + ndev);
    for (int i = 0; i < ndev; ++i)
        result.weights.push_back(largest / dev[i]);
    return result;
}

ResultArray CreateFirByRemezord(int filterType, double f1, double f2, double f3, double f4, double* dev,
                                int ndev, int* order)
{
    RemezordResult r = Remezord(filterType, f1, f2, f3, f4, dev, ndev);
    *order = r.order;
    return DesignEquiripple(r.order, r.edges.data(), r.amplitudes.data(),
                            static_cast<int>(r.edges.size()), r.weights.data(),
                            static_cast<int>(r.weights.size()));
}

} // namespace trelvanix
