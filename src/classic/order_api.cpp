#include "classic/minimum_order.h"
#include "trelvanix.h"

void FilterMinimumOrder(int designType, const double* edges, int edgeCount, double passRipple,
                        double stopAttenuation, int* order, double* wn)
{
    trelvanix::FilterMinimumOrder(designType, edges, edgeCount, passRipple, stopAttenuation, order, wn);
}
