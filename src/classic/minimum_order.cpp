#include "classic/minimum_order.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>
#include <utility>
#include <vector>

#include "common/constants.h"
#include "common/numbers.h"
#include "iir/order_formulas.h"
#include "math/bounded_minimum.h"
#include "math/exponential.h"
#include "math/trigonometric.h"

// Every lowpass is the same lowpass once its stop edge is divided by its pass edge; the other kinds are
// brought to that form by the frequency transformations, run backwards. The quotient that results, the
// selectivity WA > 1, and the two decibel figures decide the order of each family.
// Source: Rabiner & Gold, Theory and Application of Digital Signal Processing, 1975, chapter 4.
namespace trelvanix
{
namespace
{

enum class BandKind { lowPass, highPass, bandStop, bandPass };

// Prewarped edges, lower edge first. WP and WS have the same count: 1, for the band types 2.
struct Bands {
    BandKind kind;
    std::vector<double> WP;
    std::vector<double> WS;
};

// The formulas of the families. Those of Butterworth and Chebyshev take the decibel figures without their
// signs; the elliptic one keeps them, and a negative figure gives not-a-number.
using OrderFormula = double (*)(double WA, double passRipple, double stopAttenuation);

double ButterworthOrderOf(double WA, double passRipple, double stopAttenuation)
{
    return ButterworthOrder(WA, std::fabs(passRipple), std::fabs(stopAttenuation));
}

double ChebyshevOrderOf(double WA, double passRipple, double stopAttenuation)
{
    return ChebyshevOrder(WA, std::fabs(passRipple), std::fabs(stopAttenuation));
}

double Prewarped(double edge)
{
    return Tan(edge * pi * 0.5);
}

// Edges beyond edgeCount / 2 pairs don't exist; without any the kind is of no consequence.
Bands PrewarpedBands(const double* edges, int edgeCount)
{
    const int h = std::max(edgeCount / 2, 0);
    const bool stopsAbove = h > 0 && edges[h] > edges[0];
    Bands bands = {};
    if (edgeCount == 4)
        bands.kind = stopsAbove ? BandKind::bandStop : BandKind::bandPass;
    else
        bands.kind = stopsAbove ? BandKind::lowPass : BandKind::highPass;
    std::transform(edges, edges + h, std::back_inserter(bands.WP), Prewarped);
    std::transform(edges + h, edges + 2 * std::ptrdiff_t{h}, std::back_inserter(bands.WS), Prewarped);
    return bands;
}

double Selectivity(const Bands& bands, std::size_t i)
{
    const std::vector<double>& WP = bands.WP;
    const double stop = bands.WS[i];
    switch (bands.kind) {
    case BandKind::lowPass:
        return stop / WP[i];
    case BandKind::highPass:
        return WP[i] / stop;
    case BandKind::bandStop:
        return (WP[0] - WP[1]) * stop / (Pow(stop, 2.0) - WP[1] * WP[0]);
    case BandKind::bandPass:
        break;
    }
    return (Pow(stop, 2.0) - WP[1] * WP[0]) / ((WP[0] - WP[1]) * stop);
}

// The harder of the two transitions of a band type.
double SmallestSelectivity(const Bands& bands)
{
    double smallest = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < bands.WS.size(); ++i) {
        const double selectivity = std::fabs(Selectivity(bands, i));
        // False for not-a-number, which doesn't count.
        if (selectivity < smallest)
            smallest = selectivity;
    }
    return smallest;
}

// A bandstop has to be symmetric about its centre frequency (geometrically, after prewarping). Where the
// edges are not, one transition is steeper than needed; moving the pass edges inwards, the lower one
// first, saves order.
void MovePassEdgesInwards(Bands& bands, OrderFormula formula, double passRipple, double stopAttenuation)
{
    const auto orderWithEdge = [&](std::size_t index) {
        return [&bands, formula, passRipple, stopAttenuation, index](double edge) {
            Bands trial = bands;
            trial.WP[index] = edge;
            return formula(SmallestSelectivity(trial), passRipple, stopAttenuation);
        };
    };
    bands.WP[0] = BoundedMinimum(orderWithEdge(0), bands.WP[0], bands.WS[0] - 1e-12);
    bands.WP[1] = BoundedMinimum(orderWithEdge(1), bands.WS[1] + 1e-12, bands.WP[1]);
}

// Where a Butterworth filter of that order is 3 dB down when it meets the stop band exactly.
std::vector<double> ButterworthFrequencies(const Bands& bands, double WA, int order,
                                           double stopAttenuation)
{
    const double G = PowerRatioLessOne(std::fabs(stopAttenuation));
    const double W0 = WA / Pow(G, 1.0 / (2.0 * order));
    std::vector<double> WN = bands.WP;
    if (bands.kind == BandKind::lowPass) {
        for (double& frequency : WN)
            frequency = W0 * frequency;
    } else if (bands.kind == BandKind::highPass) {
        for (double& frequency : WN)
            frequency = frequency / W0;
    } else {
        const double lower = bands.WP[0];
        const double upper = bands.WP[1];
        const double d = upper - lower;
        if (bands.kind == BandKind::bandStop) {
            const double root = std::sqrt(Pow(d, 2.0) + 4.0 * Pow(W0, 2.0) * lower * upper);
            WN[0] = std::fabs((root + d) / (2.0 * W0));
            WN[1] = std::fabs((d - root) / (2.0 * W0));
        } else {
            const double root = std::sqrt(0.25 * Pow(W0, 2.0) * Pow(d, 2.0) + lower * upper);
            WN[0] = root + W0 * d * 0.5;
            WN[1] = root - W0 * d * 0.5;
        }
        if (WN[0] > WN[1])
            std::swap(WN[0], WN[1]);
    }
    return WN;
}

void WriteButterworth(const Bands& bands, double WA, int order, double stopAttenuation, double* wn)
{
    constexpr double twoOverPi = 0.6366197723675814;
    for (const double frequency : ButterworthFrequencies(bands, WA, order, stopAttenuation))
        *wn++ = Atan(frequency) * twoOverPi;
}

} // namespace

void FilterMinimumOrder(int designType, const double* edges, int edgeCount, double passRipple,
                        double stopAttenuation, int* order, double* wn)
{
    enum Family { butterworth, chebyshev1, chebyshev2, elliptic, bessel };
    if (designType == bessel) {
        *order = 1;
        if (edgeCount == 2)
            wn[0] = 0.1;
        return;
    }
    if (designType < butterworth || designType > bessel)
        return;

    constexpr OrderFormula formulas[] = {ButterworthOrderOf, ChebyshevOrderOf, ChebyshevOrderOf,
                                         EllipticOrder};
    const OrderFormula formula = formulas[designType];
    Bands bands = PrewarpedBands(edges, edgeCount);
    if (bands.kind == BandKind::bandStop)
        MovePassEdgesInwards(bands, formula, passRipple, stopAttenuation);
    const double WA = SmallestSelectivity(bands);
    *order = ToInt(std::ceil(formula(WA, passRipple, stopAttenuation)));

    const auto h = static_cast<std::ptrdiff_t>(bands.WP.size());
    if (designType == butterworth)
        WriteButterworth(bands, WA, *order, stopAttenuation, wn);
    else // the edges as they came, neither prewarped nor moved
        std::copy_n(designType == chebyshev2 ? edges + h : edges, h, wn);
}

} // namespace trelvanix
