#ifndef TRELVANIX_TESTS_SUPPORT_PLAIN_SWEEP_H
#define TRELVANIX_TESTS_SUPPORT_PLAIN_SWEEP_H

#include "linalg/sweep_kernel.h"

namespace trelvanix::testing
{

// A double-shift sweep as it is described: each reflection of all its rows, then of all its columns,
// before the next. Arguments as for the kernel, whose bits it defines.
void PlainDoubleShiftSweep(double* a, int n, int l, int nn, Shifts shifts, double negligible);

} // namespace trelvanix::testing

#endif
