#ifndef TRELVANIX_CLASSIC_EDGE_PREPARATION_H
#define TRELVANIX_CLASSIC_EDGE_PREPARATION_H

#include "classic/filter_type.h"

namespace trelvanix
{

enum class Domain { analog, digital };

// What a frequency transformation needs, in rad/s.
struct PreparedEdges {
    double Wo; // edge of a lowpass or highpass, centre frequency of the band types
    double Bw; // bandwidth of the band types
};

// Edges of a digital design, prewarped for the bilinear transform at sampling frequency 2, or of an
// analog one, which counts its lower edge as 0 and never reads it.
//
//   wn   lowpass, highpass: wn[0] is read in a digital design; band types: wn[1] is read, wn[0] in a
//        digital design, and wn becomes { Wo, 0.0 }; any other type: Wo is wn[0] as it is
//
// Numbers are not checked: band edges of different sign give a Wo that is not a number.
PreparedEdges PrepareEdges(double* wn, FilterType filterType, Domain domain);

// Edges taken as they are; wn is read and overwritten as above, wn[0] being read always.
PreparedEdges PrepareAnalogEdges(double* wn, FilterType filterType);

// Throws std::bad_array_new_length for a negative order, and for one whose final state matrix has more
// elements than 32 bits count: above 46340, for the band types, which double it, above 23170.
void CheckOrder(int order, FilterType filterType);

} // namespace trelvanix

#endif
