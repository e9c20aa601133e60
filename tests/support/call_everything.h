#ifndef TRELVANIX_TESTS_SUPPORT_CALL_EVERYTHING_H
#define TRELVANIX_TESTS_SUPPORT_CALL_EVERYTHING_H

#include <vector>

namespace trelvanix::testing
{

// What calls have in common: 512 samples of a signal, 5 numerator and 5 denominator coefficients.
struct CallInputs {
    std::vector<double> x, b, a;
};

CallInputs MakeCallInputs();

// Calls every exported function that computes something, as a host does, and returns all results one
// after the other.
std::vector<double> CallEverything(const CallInputs& inputs);

} // namespace trelvanix::testing

#endif
