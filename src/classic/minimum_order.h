#ifndef TRELVANIX_CLASSIC_MINIMUM_ORDER_H
#define TRELVANIX_CLASSIC_MINIMUM_ORDER_H

namespace trelvanix
{

// Contract at FilterMinimumOrder in trelvanix.h.
void FilterMinimumOrder(int designType, const double* edges, int edgeCount, double passRipple,
                        double stopAttenuation, int* order, double* wn);

} // namespace trelvanix

#endif
