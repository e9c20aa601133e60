#include "trelvanix.h"

#include "linalg/polynomial_roots.h"

double* Roots(const double* c, int n)
{
    return trelvanix::Roots(c, n).release();
}
