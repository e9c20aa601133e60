#include "fuzz/arguments.h"
#include "fuzz/invariants.h"

using namespace trelvanix::fuzz;

// FilterMinimumOrder.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Arguments arguments(data, size);
    const int designType = arguments.Code(4);
    const int edgeCount = arguments.Flag() ? 2 * arguments.Below(1, 2) : arguments.Count(9);
    std::vector<double> values;
    for (int i = 0; i < edgeCount; ++i)
        values.push_back(arguments.Edge());
    const double passRipple = arguments.Decibels();
    const double stopAttenuation = arguments.Decibels();

    const CallerArray edges(values);
    const CallerArray wn(values.size() / 2);
    const CallerArray again(values.size() / 2);
    constexpr int untouched = -77;
    int order = untouched;
    int orderAgain = untouched;
    FilterMinimumOrder(designType, edges.begin(), edgeCount, passRipple, stopAttenuation, &order,
                       wn.begin());
    FilterMinimumOrder(designType, edges.begin(), edgeCount, passRipple, stopAttenuation, &orderAgain,
                       again.begin());
    edges.RequireUntouched();
    Require(order == orderAgain, "the same call has the same order");
    Require(std::equal(wn.begin(), wn.end(), again.begin(), SameValue),
            "the same call has the same frequencies");
    if (designType >= 0 && designType <= 3)
        wn.RequireWritten();
    else if (designType != 4)
        Require(order == untouched, "other families write no order");
    return 0;
}
