#ifndef TRELVANIX_CLASSIC_EQUIRIPPLE_ORDER_H
#define TRELVANIX_CLASSIC_EQUIRIPPLE_ORDER_H

#include <vector>

#include "classic/result_array.h"

namespace trelvanix
{

// An equiripple design that is ready to run: see DesignEquiripple.
struct RemezordResult {
    int order;
    std::vector<double> edges, amplitudes; // two per band, fractions of the Nyquist frequency
    std::vector<double> weights;           // one per band
};

// Equiripple filter from edges and deviations; contract at CreateFirByRemezord in trelvanix.h.
ResultArray CreateFirByRemezord(int filterType, double f1, double f2, double f3, double f4, double* dev,
                                int ndev, int* order);

// The order that such a design needs, with its bands and weights. Arguments and the normalisation of
// dev as at CreateFirByRemezord.
//
// The order is that of the longest transition's lowpass filter; the middle band's deviation serves both
// transitions. Made even when the last band passes: an odd order has no response at Nyquist.
//
// Errors, first failure wins: std::invalid_argument for filterType outside 0 .. 3, for an ndev that
// does not suit it (dev is then untouched), for an order that is not finite or above 65,536;
// std::bad_alloc.
RemezordResult Remezord(int filterType, double f1, double f2, double f3, double f4, double* dev,
                        int ndev);

} // namespace trelvanix

#endif
