#include "filter_figures.h"

#include <algorithm>
#include <bit>
#include <cstdio>

#include "filter_edges.h"
#include "run_time.h"

namespace
{

// Eight points for each tap of the longest filter draw a smooth curve. The impulse responses are then
// some 50 seconds long, and no IIR filter of the chain rings for more than a few.
int ResponsePoints(const CleanupFilters& filters)
{
    return static_cast<int>(std::bit_ceil(4U * static_cast<unsigned>(Order(filters.highPass) + 1)));
}

void PrintDeviation(const char* band, double achieved, double asked)
{
    std::printf("  %-26s %.5f, asked for %g: ", band, achieved, asked);
    if (achieved <= asked)
        std::printf("met\n");
    else
        std::printf("missed by %.1f %%\n", 100.0 * (achieved / asked - 1.0));
}

void PrintDeviations(const char* name, const DigitalFilter& filter, double rate, int pointCount)
{
    const FilterResponse response = ResponseOf(filter, rate, pointCount);
    const MagnitudeRange pass = RangeWithin(response, 0.0, lowPassPassEdge);
    const MagnitudeRange stop = RangeWithin(response, lowPassStopEdge, 0.5 * rate);
    std::printf("%-28s order %d\n", name, Order(filter));
    PrintDeviation("pass band, largest error", std::max(pass.largest - 1.0, 1.0 - pass.smallest),
                   lowPassRipple);
    PrintDeviation("stop band, largest gain", stop.largest, lowPassStopGain);
}

} // namespace

std::vector<FilterFigures> FiguresOf(const CleanupFilters& fir, const CausalFilters& iir, double rate,
                                     double mains, const std::vector<double>& signal)
{
    const int pointCount = ResponsePoints(fir);
    const auto figures = [&](const char* name, const DigitalFilter& filter, double from, double to) {
        return FilterFigures{name,
                             Order(filter),
                             MultiplicationsPerSample(filter),
                             from,
                             to,
                             ResponseOf(filter, rate, pointCount),
                             FastestRun(filter, signal)};
    };
    const double mainsFrom = mains - mainsHalfBand, mainsTo = mains + mainsHalfBand;
    const double nyquist = 0.5 * rate;
    return {figures("FIR high-pass, Hamming", fir.highPass, 0.0, fir.highPassStop),
            figures("IIR high-pass, Butterworth", iir.highPass, 0.0, fir.highPassStop),
            figures("FIR band-stop, Hamming", fir.bandStop, mainsFrom, mainsTo),
            figures("IIR band-stop, Butterworth", iir.bandStop, mainsFrom, mainsTo),
            figures("FIR low-pass, equiripple", fir.lowPass, lowPassStopEdge, nyquist),
            figures("IIR low-pass, Chebyshev II", iir.lowPass, lowPassStopEdge, nyquist)};
}

void PrintFilters(const std::vector<FilterFigures>& figures)
{
    std::printf("%-28s %11s %11s %11s %11s %11s %11s\n", "filter", "order", "multiplies", "delay, ms",
                "stops, Hz", "by, dB", "time, ms");
    for (const FilterFigures& each : figures) {
        char band[32];
        std::snprintf(band, sizeof band, "%g to %g", each.stopFrom, each.stopTo);
        const MagnitudeRange stop = RangeWithin(each.response, each.stopFrom, each.stopTo);
        std::printf("%-28s %11d %11d %11.2f %14s %8.1f %11.2f\n", each.name.c_str(), each.order,
                    each.multiplicationsPerSample, 1e3 * DelayAt(each.response, 10.0), band,
                    -Decibels(stop.largest), each.runTime);
    }
    std::printf(
        "multiplies: for each sample; delay: of the group around 10 Hz; by: at least, all over the "
        "band\n\n");
}

void PrintLowPassDeviations(const CleanupFilters& filters, double rate)
{
    const int pointCount = ResponsePoints(filters);
    PrintDeviations("equiripple, estimated order", filters.estimatedLowPass, rate, pointCount);
    PrintDeviations("equiripple, order in use", filters.lowPass, rate, pointCount);
    std::printf("\n");
}
