// Prints the bits of everything that the functions answer to a battery of ordinary requests, one number a
// line, so that builds can be compared. Not-a-numbers are printed as such: their sign and payload are the
// processor's affair.
#include <bit>
#include <cinttypes>
#include <cmath>
#include <cstdio>

#include "support/call_everything.h"

int main()
{
    using namespace trelvanix::testing;
    for (const double value : CallEverything(MakeCallInputs())) {
        if (std::isnan(value))
            std::puts("not a number");
        else
            std::printf("%016" PRIx64 " %.17g\n", std::bit_cast<std::uint64_t>(value), value);
    }
}
