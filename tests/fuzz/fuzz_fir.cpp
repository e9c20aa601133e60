#include "fuzz/arguments.h"
#include "fuzz/invariants.h"

using namespace trelvanix::fuzz;

// CreateFirByWindow, CreateFirByFS, CreateFirByRemez, CreateFirByRemezord.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Arguments arguments(data, size);
    const int function = arguments.Below(0, 3);
    const int filterType = arguments.Code(3);
    const double wc1 = arguments.Edge();
    const double wc2 = arguments.Edge();
    if (function < 3) {
        const int order = arguments.Count(function == 2 ? 40 : 200);
        const int windowType = arguments.Code(14);
        const Outcome outcome = RequireResult(
            [&] {
                if (function == 0)
                    return CreateFirByWindow(order, filterType, windowType, wc1, wc2);
                if (function == 1)
                    return CreateFirByFS(order, filterType, windowType, wc1, wc2);
                return CreateFirByRemez(order, filterType, wc1, wc2);
            },
            std::int64_t{order} + 1);
        if (function < 2 && (order < 1 || windowType < 0 || windowType > 14))
            Require(outcome == Outcome::invalidArgument, "bad orders and windows are refused");
        return 0;
    }

    const double f3 = arguments.Edge();
    const double f4 = arguments.Edge();
    const int ndev = arguments.Flag() ? arguments.Code(4) : filterType < 2 ? 2 : 3;
    std::vector<double> deviations(static_cast<std::size_t>(std::clamp(ndev, 0, 4)));
    for (double& deviation : deviations)
        deviation = arguments.Deviation();
    // The order follows from the transition bands; estimates beyond some hundred are left out, because
    // the design would take minutes by contract. It needs the narrowest transition for that, or deviations
    // whose logarithms are large.
    const bool narrow = std::fabs(wc1 - wc2) < 0.02 || (filterType > 1 && std::fabs(f3 - f4) < 0.02);
    const auto extreme = [](double d) { return d < 1e-4 || (d > 1000.0 && std::isfinite(d)); };
    if (narrow || std::any_of(deviations.begin(), deviations.end(), extreme))
        return 0;
    const CallerArray dev(deviations);
    int order = -77;
    const Outcome outcome = Try([&] {
        double* taps = CreateFirByRemezord(filterType, wc1, wc2, f3, f4, dev.begin(), ndev, &order);
        Require(order >= -1, "a design has an order");
        for (int i = 0; i <= order; ++i)
            Require(!SameBits(taps[i], FreshMemory()), "every element of a result is written");
        ReleaseDoubleArray(taps);
    });
    if (filterType < 0 || filterType > 3)
        Require(outcome == Outcome::invalidArgument, "other filter types are refused");
    return 0;
}
