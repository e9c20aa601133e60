#include "trelvanix.h"

#include "api/not_in_this_version.h"

void FilterMinimumOrder(int /*designType*/, const double* /*edges*/, int /*edgeCount*/,
                        double /*passRipple*/, double /*stopAttenuation*/, int* /*order*/,
                        double* /*wn*/)
{
    trelvanix::ThrowNotInThisVersion("FilterMinimumOrder");
}
