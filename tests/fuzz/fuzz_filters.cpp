#include "fuzz/arguments.h"
#include "fuzz/invariants.h"

using namespace trelvanix::fuzz;

// FirFilterToSignal, IirFilterToSignal, Filter.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Arguments arguments(data, size);
    const int signalLength = arguments.Count(1000);
    const int coefCount = arguments.Count(arguments.Flag() ? 20 : 300);
    const CallerArray signal(arguments.Numbers(signalLength));
    const CallerArray b(arguments.Numbers(coefCount));
    const CallerArray a(arguments.Numbers(coefCount));
    const bool accepted = signalLength >= 0 && coefCount >= 0;
    const Outcome expected = accepted ? Outcome::result : Outcome::badCount;

    const auto require = [&](auto call) {
        Require(RequireResult(call, signalLength) == expected, "counts of zero and above are accepted");
    };
    require([&] { return FirFilterToSignal(signal.begin(), b.begin(), signalLength, coefCount); });
    require([&] {
        return IirFilterToSignal(signal.begin(), b.begin(), a.begin(), signalLength, coefCount);
    });
    require([&] { return Filter(signal.begin(), b.begin(), nullptr, signalLength, coefCount); });
    require([&] { return Filter(signal.begin(), b.begin(), a.begin(), signalLength, coefCount); });
    signal.RequireUntouched();
    b.RequireUntouched();
    a.RequireUntouched();
    return 0;
}
