#include "fuzz/arguments.h"
#include "fuzz/invariants.h"

using namespace trelvanix::fuzz;

// DFT, FFT, IFFT, FFText, and releasing nothing.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Arguments arguments(data, size);
    const int n = arguments.Count(600);
    const std::size_t count = static_cast<std::size_t>(std::max(n, 0));
    const CallerArray input(arguments.Numbers(2 * std::max(n, 0)));
    for (const auto transform : {DFT, FFT, IFFT}) {
        const Outcome outcome =
            RequireResult([&] { return transform(input.begin(), 1, n); }, 2 * std::int64_t{n});
        Require(outcome == (n < 0 ? Outcome::badCount : Outcome::result), "lengths are accepted");
    }
    input.RequireUntouched();

    const int xCount = arguments.Count(600);
    // A negative count reads n samples.
    const CallerArray x(arguments.Numbers(xCount < 0 ? n : xCount));
    const CallerArray real(count);
    const CallerArray imaginary(count);
    const Outcome outcome = Try([&] { FFText(x.begin(), xCount, n, real.begin(), imaginary.begin()); });
    if (outcome == Outcome::result) {
        real.RequireWritten();
        imaginary.RequireWritten();
    }
    x.RequireUntouched();

    for (const auto release : {ReleaseDoubleArray, ReleaseComplexDoubleArray})
        Require(release(nullptr) == 0, "there is nothing to release behind null");
    return 0;
}
