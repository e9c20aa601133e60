#ifndef TRELVANIX_TESTS_SUPPORT_CALL_EVERYTHING_H
#define TRELVANIX_TESTS_SUPPORT_CALL_EVERYTHING_H

#include <vector>

namespace trelvanix::testing
{

// What calls have in common: samples of a signal, numerator and denominator coefficients.
struct CallInputs {
    std::vector<double> x, b, a;
};

CallInputs MakeCallInputs();

constexpr int callGroups = 7;

// Calls each of the twenty exported functions, as a host does, with small requests and with some that are
// large enough for every loop of a kernel. Returns all results one after the other. The calls come in
// groups; the first may be any of them and changes nothing in what is returned.
std::vector<double> CallEverything(const CallInputs& inputs, int firstGroup = 0);

} // namespace trelvanix::testing

#endif
