#ifndef TRELVANIX_CLASSIC_CHEBYSHEV2_H
#define TRELVANIX_CLASSIC_CHEBYSHEV2_H

#include <cstdint>

#include "classic/state_space.h"

namespace trelvanix
{

// Contract at Chebyshv2 in trelvanix.h.
void Chebyshv2(int order, double rs, double* wn, std::uint32_t filterType, int analog, double* a,
               double* b);

} // namespace trelvanix

#endif
