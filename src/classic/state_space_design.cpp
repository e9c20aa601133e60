#include "classic/state_space_design.h"

#include "classic/bilinear.h"
#include "classic/frequency_transformations.h"

namespace trelvanix
{

StateSpace DesignModel(AnalogPrototype prototype, FilterType filterType, const PreparedEdges& edges,
                       Domain domain)
{
    StateSpace model = ZpToStateSpace(prototype);
    TransformLowPass(model, filterType, edges);
    if (domain == Domain::digital)
        BilinearSs(model, 2.0);
    return model;
}

} // namespace trelvanix
