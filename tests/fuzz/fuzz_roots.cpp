#include "fuzz/arguments.h"
#include "fuzz/invariants.h"

using namespace trelvanix::fuzz;

// Roots.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Arguments arguments(data, size);
    const int n = arguments.Count(40);
    const CallerArray c(arguments.Numbers(n));
    const Outcome outcome = RequireResult([&] { return Roots(c.begin(), n); }, 2 * std::int64_t{n});
    Require(outcome == (n < 0 ? Outcome::badCount : Outcome::result), "degrees are accepted");
    c.RequireUntouched();

    const Outcome tooLarge =
        RequireResult([&] { return Roots(c.begin(), 46341 + arguments.Below(0, 2147437306)); }, 0);
    Require(tooLarge == Outcome::badCount, "degrees beyond 46340 are refused");
    return 0;
}
