#ifndef TRELVANIX_CLASSIC_STATE_SPACE_DESIGN_H
#define TRELVANIX_CLASSIC_STATE_SPACE_DESIGN_H

#include "classic/edge_preparation.h"
#include "classic/filter_type.h"
#include "classic/state_space.h"

namespace trelvanix
{

// The chain that every design runs through: prototype to state-space model, lowpass to the filter type, for
// digital filters the bilinear transform at sampling frequency 2.
StateSpace DesignModel(AnalogPrototype prototype, FilterType filterType, const PreparedEdges& edges,
                       Domain domain);

} // namespace trelvanix

#endif
