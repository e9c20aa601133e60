#ifndef TRELVANIX_CLASSIC_ROOTS_H
#define TRELVANIX_CLASSIC_ROOTS_H

#include "classic/result_array.h"

namespace trelvanix
{

// The n roots of c[0] z^n + ... + c[n-1] z + c[0]; contract at Roots in trelvanix.h.
ResultArray Roots(const double* c, int n);

} // namespace trelvanix

#endif
