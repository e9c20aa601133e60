#include "trelvanix.h"

#include "api/not_in_this_version.h"

double* Roots(const double* /*c*/, int /*n*/)
{
    trelvanix::ThrowNotInThisVersion("Roots");
}
