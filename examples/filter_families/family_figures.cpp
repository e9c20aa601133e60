#include "family_figures.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <string>

#include "run_time.h"

namespace
{

std::string Verdict(const MaskFigures& figures)
{
    if (IsMet(figures))
        return "met";
    char text[96];
    if (figures.stopMiss == 0.0)
        std::snprintf(text, sizeof text, "missed by %.4f dB (pass band)", figures.passMiss);
    else if (figures.passMiss == 0.0)
        std::snprintf(text, sizeof text, "missed by %.4f dB (stop band)", figures.stopMiss);
    else
        std::snprintf(text, sizeof text, "missed by %.4f dB (pass band), %.4f dB (stop band)",
                      figures.passMiss, figures.stopMiss);
    return text;
}

} // namespace

double DelayFrequency(const LowPassMask& mask)
{
    return std::min(10.0, 0.5 * mask.passEdge);
}

FamilyFigures FiguresOf(const FamilyDesign& design, const LowPassMask& mask,
                        const std::vector<double>& signal)
{
    return {Order(design.filter),
            MultiplicationsPerSample(design.filter),
            DelayAt(design.response, DelayFrequency(mask)),
            LargestDelayWithin(design.response, 0.0, mask.passEdge),
            CompareWithMask(design.response, mask),
            FastestRun(design.filter, signal)};
}

void PrintFamilies(const std::vector<FamilyDesign>& designs, const std::vector<FamilyFigures>& figures,
                   const LowPassMask& mask)
{
    std::printf("%-15s %6s %11s %10s %10s %11s %9s %9s  %s\n", "family", "order", "multiplies",
                "delay, ms", "at most", "ripple, dB", "stop, dB", "time, ms", "mask");
    for (std::size_t k = 0; k < designs.size(); ++k) {
        const FamilyFigures& each = figures[k];
        std::printf("%-15s %6d %11d %10.2f %10.2f %11.4f %9.2f %9.3f  %s\n", designs[k].name.c_str(),
                    each.order, each.multiplicationsPerSample, 1e3 * each.delay,
                    1e3 * each.largestDelay, each.mask.ripple, each.mask.attenuation, each.runTime,
                    Verdict(each.mask).c_str());
    }
    std::printf(
        "multiplies: for each sample; delay: of the group at %g Hz, and at most in the pass "
        "band;\nripple: largest less smallest gain of the pass band; stop: least attenuation of "
        "the stop band;\ntime: to filter the recording\n\n",
        DelayFrequency(mask));
}

void PrintNotes(const EquirippleDesign& fir, const LowPassMask& mask)
{
    const FamilyDesign& estimated = fir.estimated;
    std::printf("equiripple FIR: order %d as estimated, mask %s\n", Order(estimated.filter),
                Verdict(CompareWithMask(estimated.response, mask)).c_str());
    if (fir.share < 1.0)
        std::printf("                order %d in use, asked for %.0f %% of the deviations allowed\n",
                    Order(fir.used.filter), 100.0 * fir.share);

    constexpr int bessel = 4;
    const double nyquist = 0.5 * mask.rate;
    const std::array<double, 2> edges{mask.passEdge / nyquist, mask.stopEdge / nyquist};
    int order = 0;
    double wn = 0.0;
    FilterMinimumOrder(bessel, edges.data(), 2, mask.passRipple, mask.stopAttenuation, &order, &wn);
    std::printf("Bessel:         left out; the order estimated is %d whatever is asked for, and its "
                "designs are analog\n",
                order);
}
