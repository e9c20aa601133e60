#include "fuzz/arguments.h"
#include "fuzz/invariants.h"

using namespace trelvanix::fuzz;

namespace
{

struct Request {
    int family;
    int order;
    int filterType;
    int analog;
    double decibels[2];
    std::vector<double> wn;
};

void Design(const Request& request, double* wn, double* a, double* b)
{
    const auto type = static_cast<unsigned int>(request.filterType);
    const auto& [family, order, filterType, analog, decibels, edges] = request;
    switch (family) {
    case 0:
        return Butterworth(order, wn, type, analog, a, b);
    case 1:
        return Chebyshv1(order, decibels[0], wn, type, analog, a, b);
    case 2:
        return Chebyshv2(order, decibels[0], wn, type, analog, a, b);
    case 3:
        return Elliptic(order, decibels[0], decibels[1], wn, type, analog, a, b);
    default:
        return Bessel(order, wn, filterType, a, b);
    }
}

} // namespace

// Butterworth, Chebyshv1, Chebyshv2, Elliptic, Bessel.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Arguments arguments(data, size);
    Request request = {};
    request.family = arguments.Below(0, 4);
    request.order = arguments.Count(14);
    request.filterType = arguments.Code(3);
    request.analog = arguments.Below(0, 1);
    request.decibels[0] = arguments.Decibels();
    request.decibels[1] = arguments.Decibels();
    const bool band = request.filterType == 2 || request.filterType == 3;
    for (int i = 0; i < (band ? 2 : 1); ++i)
        request.wn.push_back(arguments.Edge());
    const int states = std::max(request.order, 0) * (band ? 2 : 1);
    const auto count = static_cast<std::size_t>(states) + 1;
    const bool nullA = arguments.Below(0, 15) == 0;
    const bool nullB = arguments.Below(0, 15) == 0;

    std::vector<double> first;
    for (int run = 0; run < 2; ++run) {
        const CallerArray wn(request.wn);
        const CallerArray a(count);
        const CallerArray b(count);
        const Outcome outcome = Try([&] {
            Design(request, wn.begin(), nullA ? nullptr : a.begin(), nullB ? nullptr : b.begin());
        });
        if (request.order < 0) {
            Require(outcome == Outcome::badCount, "negative orders are refused");
            a.RequireUntouched();
            b.RequireUntouched();
            continue;
        }
        Require(outcome == Outcome::result, "every other request is answered");
        nullA ? a.RequireUntouched() : a.RequireWritten();
        nullB ? b.RequireUntouched() : b.RequireWritten();
        if (!band)
            wn.RequireUntouched();
        std::vector<double> all(a.begin(), a.end());
        all.insert(all.end(), b.begin(), b.end());
        all.insert(all.end(), wn.begin(), wn.end());
        if (run == 0)
            first = all;
        Require(std::equal(all.begin(), all.end(), first.begin(), SameValue),
                "the same call has the same result");
    }
    return 0;
}
